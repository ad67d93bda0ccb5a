#pragma once

#include <functional>

#include "cwnd.h"

namespace mfx {

// Calls a function that creates a window; the window becomes the object's before it gets its first message.
HWND CreateWindowOf(CWnd& wnd, const std::function<HWND()>& create);

}  // namespace mfx
