#pragma once

#include <windows.h>

#include <unordered_map>

class CWnd;

namespace mfx {

struct WindowRecord {
    CWnd* pObject;   // permanent object, null after Detach
    WNDPROC pfnOwn;  // the window's own procedure while it is subclassed
};

// The calling thread's windows that have a permanent object or are subclassed.
std::unordered_map<HWND, WindowRecord>& WindowMap();

}  // namespace mfx
