#include "guarded.h"

#include <exception>
#include <utility>

#include "afxwin.h"

namespace {

CString CurrentExceptionText() {
    try {
        throw;
    } catch (const std::exception& e) {
        return CString(e.what());
    } catch (...) {
        return CString(L"unknown exception");
    }
}

}  // namespace

LRESULT mfx::ReportException(const MSG& msg) {
    if (msg.message == WM_PAINT) ::ValidateRect(msg.hwnd, nullptr);
    const CString text = CurrentExceptionText();
    ::OutputDebugStringW(text + L"\n");
    // Not box upon box, if it is a timer's handler that fails.
    thread_local bool isShowing = false;
    if (!std::exchange(isShowing, true)) {
        AfxMessageBox(text.GetString(), MB_ICONSTOP);
        isShowing = false;
    }
    return msg.message == WM_CREATE ? -1 : 0;
}
