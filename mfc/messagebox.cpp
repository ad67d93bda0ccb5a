#include "afxwin.h"

int AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT /*nIDHelp*/) {
    HWND owner = ::GetActiveWindow();
    if (owner) owner = ::GetLastActivePopup(owner);
    return ::MessageBoxW(owner, lpszText, AfxGetAppName(), nType);
}

int AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp) {
    CString text;
    text.LoadString(nIDPrompt);
    return AfxMessageBox(text.GetString(), nType, nIDHelp);
}
