#pragma once

#include "cwnd.h"

class MFX_MFC_API CEdit : public CWnd {
  public:
    CEdit() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(L"EDIT", nullptr, dwStyle, rect, pParentWnd, nID);
    }

    // From 0 to -1 is all, from -1 none.
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE) {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(nStartChar), nEndChar);
        if (!bNoScroll) SendMessage(EM_SCROLLCARET);
    }
    void GetSel(int& nStartChar, int& nEndChar) const {
        ::SendMessageW(m_hWnd, EM_GETSEL, (WPARAM)&nStartChar, (LPARAM)&nEndChar);
    }
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE) {
        SendMessage(EM_REPLACESEL, static_cast<WPARAM>(bCanUndo), reinterpret_cast<LPARAM>(lpszNewText));
    }
    // For typing; 0 is the largest there is.
    void SetLimitText(UINT nMax) { SendMessage(EM_SETLIMITTEXT, nMax); }
    void LimitText(int nChars = 0) { SetLimitText(static_cast<UINT>(nChars)); }
};
