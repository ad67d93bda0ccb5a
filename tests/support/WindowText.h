#pragma once

#include <afx.h>

// The text of a window, also of another thread's control.
inline CString WindowText(HWND hWindow) {
    CString strText;
    const int nLength = GetWindowTextLengthW(hWindow) + 1;
    GetWindowTextW(hWindow, strText.GetBuffer(nLength), nLength);
    strText.ReleaseBuffer();
    return strText;
}
