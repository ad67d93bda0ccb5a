#include "cdc.h"

#include "cwnd.h"

CBitmap* CDC::SelectObject(CBitmap* pBitmap) {
    return CBitmap::FromHandle(static_cast<HBITMAP>(::SelectObject(m_hDC, pBitmap->GetSafeHandle())));
}

BOOL CDC::StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                     int nSrcHeight, DWORD dwRop) {
    return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC->m_hDC, xSrc, ySrc, nSrcWidth, nSrcHeight,
                        dwRop);
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr) {
    ::SetBkColor(m_hDC, clr);
    ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd()) {
    Attach(::BeginPaint(m_hWnd, &m_ps));
}

CPaintDC::~CPaintDC() {
    Detach();
    ::EndPaint(m_hWnd, &m_ps);
}
