#pragma once

#include "cwnd.h"

class MFX_MFC_API CStatic : public CWnd {
  public:
    CStatic() = default;

    virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                        UINT nID = 0xffff) {
        return CWnd::Create(L"STATIC", lpszText, dwStyle, rect, pParentWnd, nID);
    }
};
