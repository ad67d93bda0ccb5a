#include "Screenshot.h"

#include <objidl.h>

#include <gdiplus.h>

using namespace Gdiplus;

namespace {

constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

HBITMAP CopyFromScreen(HWND hWindow) {
    RECT rect{};
    GetWindowRect(hWindow, &rect);
    const int nWidth = rect.right - rect.left, nHeight = rect.bottom - rect.top;
    const HDC hScreen = GetDC(nullptr), hMemory = CreateCompatibleDC(hScreen);
    const HBITMAP hBitmap = CreateCompatibleBitmap(hScreen, nWidth, nHeight);
    const HGDIOBJ hPrevious = SelectObject(hMemory, hBitmap);
    BitBlt(hMemory, 0, 0, nWidth, nHeight, hScreen, rect.left, rect.top, SRCCOPY);
    SelectObject(hMemory, hPrevious);
    DeleteDC(hMemory);
    ReleaseDC(nullptr, hScreen);
    return hBitmap;
}

}  // namespace

bool SaveScreenshot(HWND hWindow, const CString& strPath) {
    const GdiplusStartupInput input;
    ULONG_PTR nToken = 0;
    if (GdiplusStartup(&nToken, &input, nullptr) != Ok) return false;
    const HBITMAP hBitmap = CopyFromScreen(hWindow);
    const bool bSaved = Bitmap(hBitmap, nullptr).Save(strPath, &kPngEncoder, nullptr) == Ok;
    DeleteObject(hBitmap);
    GdiplusShutdown(nToken);
    return bSaved;
}

bool KeepScreenshot(HWND hWindow, const CString& strName) {
    CString strFolder = L"screenshots";
    if (GetDpiForSystem() != USER_DEFAULT_SCREEN_DPI)
        strFolder.Format(L"screenshots-%u-dpi", GetDpiForSystem());
    CreateDirectoryW(strFolder, nullptr);
    return SaveScreenshot(hWindow, strFolder + L"\\" + strName + L".png");
}
