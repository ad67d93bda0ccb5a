#include "Screenshot.h"

#include <wincodec.h>
#include <wrl/client.h>

#include <vector>

using Microsoft::WRL::ComPtr;

namespace {

struct Picture {
    UINT nWidth = 0;
    UINT nHeight = 0;
    std::vector<BYTE> pixels;  // blue, green, red, unused; from the top
};

Picture CopyFromScreen(HWND hWindow) {
    RECT rect{};
    GetWindowRect(hWindow, &rect);
    const int nWidth = rect.right - rect.left, nHeight = rect.bottom - rect.top;
    const HDC hScreen = GetDC(nullptr), hMemory = CreateCompatibleDC(hScreen);
    const HBITMAP hBitmap = CreateCompatibleBitmap(hScreen, nWidth, nHeight);
    const HGDIOBJ hPrevious = SelectObject(hMemory, hBitmap);
    BitBlt(hMemory, 0, 0, nWidth, nHeight, hScreen, rect.left, rect.top, SRCCOPY);
    SelectObject(hMemory, hPrevious);

    Picture picture{static_cast<UINT>(nWidth), static_cast<UINT>(nHeight), {}};
    picture.pixels.resize(4u * picture.nWidth * picture.nHeight);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, nWidth, -nHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    GetDIBits(hMemory, hBitmap, 0, picture.nHeight, picture.pixels.data(), &info, DIB_RGB_COLORS);
    DeleteObject(hBitmap);
    DeleteDC(hMemory);
    ReleaseDC(nullptr, hScreen);
    return picture;
}

bool WritePng(const CString& strPath, Picture picture) {
    ComPtr<IWICImagingFactory> pFactory;
    ComPtr<IWICStream> pStream;
    ComPtr<IWICBitmapEncoder> pEncoder;
    ComPtr<IWICBitmapFrameEncode> pFrame;
    WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGR;
    const UINT nStride = 4 * picture.nWidth;
    const auto ok = [](HRESULT result) { return SUCCEEDED(result); };
    return ok(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                               IID_PPV_ARGS(&pFactory))) &&
           ok(pFactory->CreateStream(&pStream)) &&
           ok(pStream->InitializeFromFilename(strPath, GENERIC_WRITE)) &&
           ok(pFactory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &pEncoder)) &&
           ok(pEncoder->Initialize(pStream.Get(), WICBitmapEncoderNoCache)) &&
           ok(pEncoder->CreateNewFrame(&pFrame, nullptr)) && ok(pFrame->Initialize(nullptr)) &&
           ok(pFrame->SetSize(picture.nWidth, picture.nHeight)) && ok(pFrame->SetPixelFormat(&format)) &&
           ok(pFrame->WritePixels(picture.nHeight, nStride, nStride * picture.nHeight,
                                  picture.pixels.data())) &&
           ok(pFrame->Commit()) && ok(pEncoder->Commit());
}

}  // namespace

bool SaveScreenshot(HWND hWindow, const CString& strPath) {
    const HRESULT initialized = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const bool bSaved = WritePng(strPath, CopyFromScreen(hWindow));
    if (SUCCEEDED(initialized)) CoUninitialize();
    return bSaved;
}
