#pragma once

#include "afx.h"

namespace mfx {

// For a catch clause: tells the debugger and the user about the exception. Returns the answer to the message
// whose handler threw: -1 for WM_CREATE, so that there is no window, otherwise 0. A window that could not be
// painted counts as painted, without a message box: Windows would ask it to paint again at once.
LRESULT ReportException(const MSG& msg);

// Calls a handler for Windows, which no exception may reach.
template <class Function>
LRESULT Guarded(const MSG& msg, Function handle) noexcept {
    try {
        return handle();
    } catch (...) {
        return ReportException(msg);
    }
}

}  // namespace mfx
