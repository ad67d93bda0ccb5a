// mfx_screenshot CAPTION FILE: waits for a dialog of another program, writes its picture and cancels it.

#include "Screenshot.h"

#include <cstdio>

namespace {

constexpr int kPatienceMs = 30'000;
constexpr int kStepMs = 50;
constexpr int kSettleMs = 300;  // the window is there before it is painted

HWND WaitForWindow(const wchar_t* pszCaption) {
    for (int nWaitedMs = 0; nWaitedMs < kPatienceMs; nWaitedMs += kStepMs) {
        const HWND hWindow = FindWindowW(nullptr, pszCaption);
        if (hWindow && IsWindowVisible(hWindow)) return hWindow;
        Sleep(kStepMs);
    }
    return nullptr;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 3) return 2;
    const HWND hWindow = WaitForWindow(argv[1]);
    if (!hWindow) {
        std::fprintf(stderr, "mfx_screenshot: no such window\n");
        return 1;
    }
    SetForegroundWindow(hWindow);
    Sleep(kSettleMs);
    const bool bSaved = SaveScreenshot(hWindow, argv[2]);
    PostMessageW(hWindow, WM_COMMAND, IDCANCEL, 0);
    if (!bSaved) std::fprintf(stderr, "mfx_screenshot: the file can't be written\n");
    return bSaved ? 0 : 1;
}
