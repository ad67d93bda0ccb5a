#pragma once

#include <functional>

#include "cwnd.h"

namespace mfx {

// Calls a function that creates a window. The window belongs to the object before its first message comes.
HWND CreateWindowOf(CWnd& wnd, const std::function<HWND()>& create);

}  // namespace mfx
