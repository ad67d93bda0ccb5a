#include "windowmap.h"

std::unordered_map<HWND, mfx::WindowRecord>& mfx::WindowMap() {
    thread_local std::unordered_map<HWND, WindowRecord> windows;
    return windows;
}
