#include "HandleMessage.h"

#include <exception>
#include <utility>

namespace {

CString CurrentExceptionText() {
    try {
        throw;
    } catch (const std::exception& exception) {
        return CString(exception.what());
    } catch (...) {
        return CString(L"unknown exception");
    }
}

}  // namespace

LRESULT ReportFailedHandler(HWND hWindow, UINT nMessage) {
    const CString strText = CurrentExceptionText();
    OutputDebugStringW(strText + L"\n");
    if (nMessage == WM_CREATE) return -1;
    if (nMessage == WM_PAINT) return ValidateRect(hWindow, nullptr), 0;
    // Not box upon box, if it is a timer's handler that fails.
    static thread_local bool bShowing = false;
    if (!std::exchange(bShowing, true)) {
        AfxMessageBox(strText, MB_ICONSTOP);
        bShowing = false;
    }
    return 0;
}
