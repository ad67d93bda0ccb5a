#include "PictureControl.h"

#include "HandleMessage.h"
#include "PixelScaling.h"

#include <algorithm>
#include <cmath>

namespace {

BITMAPINFO HeaderOf(int nWidth, int nHeight) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = nWidth;
    info.bmiHeader.biHeight = -nHeight;  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return info;
}

CSize SizeOf(HBITMAP hBitmap) {
    BITMAP bitmap{};
    GetObjectW(hBitmap, sizeof bitmap, &bitmap);
    return {bitmap.bmWidth, bitmap.bmHeight};
}

Pixels ReadPixels(HDC hDC, HBITMAP hBitmap) {
    const CSize size = SizeOf(hBitmap);
    Pixels pixels{size.cx, size.cy, std::vector<std::uint32_t>(static_cast<std::size_t>(size.cx * size.cy))};
    BITMAPINFO info = HeaderOf(size.cx, size.cy);
    GetDIBits(hDC, hBitmap, 0, static_cast<UINT>(size.cy), pixels.values.data(), &info, DIB_RGB_COLORS);
    return pixels;
}

HBITMAP CreateBitmapOf(HDC hDC, const Pixels& pixels) {
    const BITMAPINFO info = HeaderOf(pixels.nWidth, pixels.nHeight);
    return CreateDIBitmap(hDC, &info.bmiHeader, CBM_INIT, pixels.values.data(), &info, DIB_RGB_COLORS);
}

// The largest size of the picture's proportions that fits.
CSize FitInto(CSize picture, CSize room) {
    const double scale =
        std::min(static_cast<double>(room.cx) / picture.cx, static_cast<double>(room.cy) / picture.cy);
    return {std::max(1, static_cast<int>(std::lround(picture.cx * scale))),
            std::max(1, static_cast<int>(std::lround(picture.cy * scale)))};
}

}  // namespace

BEGIN_MESSAGE_MAP(PictureControl, CStatic)
    ON_WM_PAINT()
    ON_WM_SIZE()
END_MESSAGE_MAP()

LRESULT PictureControl::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) {
    return HandleMessage(m_hWnd, nMessage, [&] { return CStatic::WindowProc(nMessage, wParam, lParam); });
}

void PictureControl::SetBitmap(HBITMAP hBitmap) {
    if (hBitmap && hBitmap == m_bitmap.GetSafeHandle()) return;
    m_bitmap.DeleteObject();
    m_scaledSize = CSize(0, 0);
    if (hBitmap) m_bitmap.Attach(hBitmap);
    if (GetSafeHwnd()) Invalidate();
}

// False when there is no memory for it.
bool PictureControl::ScaleTo(CDC& dc, CSize size) {
    if (size.cx == m_scaledSize.cx && size.cy == m_scaledSize.cy) return true;
    m_scaled.DeleteObject();
    m_scaledSize = CSize(0, 0);
    const HBITMAP hScaled = CreateBitmapOf(dc, ScalePixels(ReadPixels(dc, m_bitmap), size.cx, size.cy));
    if (!hScaled || !m_scaled.Attach(hScaled)) return false;
    m_scaledSize = size;
    return true;
}

void PictureControl::OnPaint() {
    CPaintDC dc(this);
    CRect room;
    GetClientRect(&room);
    dc.FillSolidRect(&room, GetSysColor(COLOR_3DFACE));
    if (!m_bitmap.GetSafeHandle() || room.IsRectEmpty()) return;
    const CSize pictureSize = SizeOf(m_bitmap);
    if (pictureSize.cx <= 0 || pictureSize.cy <= 0) return;  // the host's handle is no bitmap
    const CSize size = FitInto(pictureSize, room.Size());
    if (!ScaleTo(dc, size)) return;
    CDC memory;
    memory.CreateCompatibleDC(&dc);
    CBitmap* const pPrevious = memory.SelectObject(&m_scaled);
    dc.StretchBlt((room.Width() - size.cx) / 2, (room.Height() - size.cy) / 2, size.cx, size.cy, &memory, 0,
                  0, size.cx, size.cy, SRCCOPY);
    memory.SelectObject(pPrevious);
}

void PictureControl::OnSize(UINT nType, int cx, int cy) {
    CStatic::OnSize(nType, cx, cy);
    Invalidate();  // the picture is another one all over
}
