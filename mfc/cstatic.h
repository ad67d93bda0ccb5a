#pragma once

#include "cwnd.h"

class MFX_MFC_API CStatic : public CWnd {
  public:
    CStatic() = default;

    virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                        UINT nID = 0xffff) {
        return CWnd::Create(L"STATIC", lpszText, dwStyle, rect, pParentWnd, nID);
    }

    // The bitmap stays the caller's; returns the previous one.
    HBITMAP SetBitmap(HBITMAP hBitmap) {
        return (HBITMAP)SendMessage(STM_SETIMAGE, IMAGE_BITMAP, (LPARAM)hBitmap);
    }
    HBITMAP GetBitmap() const { return (HBITMAP)::SendMessageW(m_hWnd, STM_GETIMAGE, IMAGE_BITMAP, 0); }
};
