#pragma once

#include <windows.h>

namespace mfx {

// In a catch clause: tells the debugger and the user about the exception. Returns what Windows shall get for
// the message whose handler threw: -1 for WM_CREATE, so that there is no window, otherwise 0. A window that
// could not be painted counts as painted and shows no message box, or it would be asked again at once.
LRESULT ReportException(const MSG& msg);

// Calls a handler that Windows calls, and which no exception may leave.
template <class Function>
LRESULT Guarded(const MSG& msg, Function handle) noexcept {
    try {
        return handle();
    } catch (...) {
        return ReportException(msg);
    }
}

}  // namespace mfx
