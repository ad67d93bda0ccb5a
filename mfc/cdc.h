#pragma once

#include "afx.h"
#include "atltypes.h"
#include "cbitmap.h"
#include "cfont.h"

class CWnd;

// Owns a device context, which is deleted with this object unless it was detached.
class MFX_MFC_API CDC : public CObject {
  public:
    CDC() = default;
    ~CDC() override { DeleteDC(); }

    // FALSE for a null handle, or if there is a context already.
    BOOL Attach(HDC hDC) { return hDC && !m_hDC && (m_hDC = hDC); }
    HDC Detach() { return std::exchange(m_hDC, nullptr); }
    BOOL CreateCompatibleDC(CDC* pDC) { return !m_hDC && Attach(::CreateCompatibleDC(pDC->m_hDC)); }
    BOOL DeleteDC() { return m_hDC && ::DeleteDC(Detach()); }
    operator HDC() const { return m_hDC; }

    // Returns what was selected before, as a temporary object; null on failure. Select that again before
    // pBitmap or this context is deleted.
    CBitmap* SelectObject(CBitmap* pBitmap);

    BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                    int nSrcHeight, DWORD dwRop);
    void FillSolidRect(LPCRECT lpRect, COLORREF clr);

    HDC m_hDC = nullptr;
};

// Paints the invalid part of a window. Only for its OnPaint.
class MFX_MFC_API CPaintDC : public CDC {
  public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

  protected:
    HWND m_hWnd;
};
