#pragma once

#include "MfxKitExport.h"

#include <afxwin.h>

// For a catch clause: tells the debugger and the user about the exception. Returns the answer to the message
// whose handler threw: -1 for WM_CREATE, so that there is no window, otherwise 0. A window that could not be
// painted counts as painted, without a message box: Windows would ask it to paint again at once.
MFXKIT_API LRESULT ReportFailedHandler(HWND hWindow, UINT nMessage);

// Calls what handles a window's message. No C++ exception may reach Windows, and MFC holds back only its own
// exceptions, which go on to it.
template <class Handle>
LRESULT HandleMessage(HWND hWindow, UINT nMessage, Handle&& handle) {
    try {
        return handle();
    } catch (CException*) {
        throw;
    } catch (...) {
        return ReportFailedHandler(hWindow, nMessage);
    }
}
