#pragma once

#include "cwnd.h"

class MFX_MFC_API CEdit : public CWnd {
  public:
    CEdit() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(L"EDIT", nullptr, dwStyle, rect, pParentWnd, nID);
    }

    // From 0 to -1 selects all; a start of -1 selects nothing.
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE) {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(nStartChar), nEndChar);
        if (!bNoScroll) SendMessage(EM_SCROLLCARET);
    }
    void GetSel(int& nStartChar, int& nEndChar) const {
        ::SendMessageW(m_hWnd, EM_GETSEL, (WPARAM)&nStartChar, (LPARAM)&nEndChar);
    }
    // Where a multi-line box shows its text, in client coordinates. Does not repaint.
    void SetRectNP(LPCRECT lpRect) { SendMessage(EM_SETRECTNP, 0, reinterpret_cast<LPARAM>(lpRect)); }
    // For typing; 0 is the largest there is.
    void SetLimitText(UINT nMax) { SendMessage(EM_SETLIMITTEXT, nMax); }
};
