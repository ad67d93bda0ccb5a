#include "CellEditors.h"

#include <algorithm>

namespace {

constexpr int kTextMargin = 1;  // pixels

}  // namespace

int ScaleForDpi(const CWnd& window, int nPixels) {
    return MulDiv(nPixels, static_cast<int>(GetDpiForWindow(window.m_hWnd)), USER_DEFAULT_SCREEN_DPI);
}

int GetFontHeight(const CWnd& window) {
    const HDC hDC = ::GetDC(window.m_hWnd);
    const HGDIOBJ hPrevious =
        ::SelectObject(hDC, reinterpret_cast<HFONT>(::SendMessageW(window.m_hWnd, WM_GETFONT, 0, 0)));
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(hDC, &metrics);
    if (hPrevious) ::SelectObject(hDC, hPrevious);
    ::ReleaseDC(window.m_hWnd, hDC);
    return metrics.tmHeight;
}

void PlaceLine(CEdit& editor, int nFontHeight) {
    CRect line;
    editor.GetClientRect(line);
    line.InflateRect(-kTextMargin, -std::max(0, (line.Height() - nFontHeight) / 2));
    editor.SetRectNP(line);
}

void PlaceBox(CComboBox& combo, CRect rect, int nHeight) {
    CRect box;
    combo.GetWindowRect(box);
    const int nOffset = (nHeight - box.Height()) / 2;
    combo.MoveWindow(CRect(rect.left, rect.top + nOffset, rect.right, rect.bottom + nOffset));
}
