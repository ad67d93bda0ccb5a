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
    } catch (CException* e) {
        e->Delete();
        return CString(L"MFC exception");
    } catch (...) {
        return CString(L"unknown exception");
    }
}

}  // namespace

LRESULT mfx::ReportException(const MSG& msg) {
    const CString text = CurrentExceptionText();
    ::OutputDebugStringW(text + L"\n");
    if (msg.message == WM_CREATE) return -1;
    if (msg.message == WM_PAINT) return ::ValidateRect(msg.hwnd, nullptr), 0;
    // Not box upon box, if it is a timer's handler that fails.
    thread_local bool isShowing = false;
    if (!std::exchange(isShowing, true)) {
        AfxMessageBox(text.GetString(), MB_ICONSTOP);
        isShowing = false;
    }
    return 0;
}
