#pragma once

#include <windows.h>

namespace mfx {
// Message box owned by the last active popup of the thread's active window (or by none), with the
// application's name as caption.
int ShowMessageBox(LPCWSTR text, UINT type);
}  // namespace mfx
