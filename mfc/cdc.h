#pragma once

#include "atltypes.h"
#include "cbitmap.h"
#include "cfont.h"

class CWnd;

// Owner of a device context: it is deleted with this object, unless it is detached before.
class MFX_MFC_API CDC : public CObject {
  public:
    CDC() = default;
    ~CDC() override { DeleteDC(); }

    // FALSE for a null handle, or if there is a context already.
    BOOL Attach(HDC hDC) { return hDC && !m_hDC && (m_hDC = hDC); }
    HDC Detach() { return std::exchange(m_hDC, nullptr); }
    BOOL CreateCompatibleDC(CDC* pDC) { return !m_hDC && Attach(::CreateCompatibleDC(pDC->m_hDC)); }
    BOOL DeleteDC() { return m_hDC && ::DeleteDC(Detach()); }
    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }

    // What was selected before, as a temporary object; null on failure. Select it again before the object at
    // hand or this context is deleted.
    CBitmap* SelectObject(CBitmap* pBitmap);

    int SetStretchBltMode(int nStretchMode) { return ::SetStretchBltMode(m_hDC, nStretchMode); }
    BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                    int nSrcHeight, DWORD dwRop);
    void FillSolidRect(LPCRECT lpRect, COLORREF clr);

    // Temporary object, valid until the message loop is idle; null for a null handle.
    static CDC* FromHandle(HDC hDC);

    HDC m_hDC = nullptr;
};

// The context for painting what is invalid of a window, in its OnPaint.
class MFX_MFC_API CPaintDC : public CDC {
  public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

  protected:
    HWND m_hWnd;
};
