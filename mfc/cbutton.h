#pragma once

#include "cwnd.h"

class MFX_MFC_API CButton : public CWnd {
  public:
    CButton() = default;

    virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(L"BUTTON", lpszCaption, dwStyle, rect, pParentWnd, nID);
    }

    // BST_CHECKED and the like.
    void SetCheck(int nCheck) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck)); }
    int GetCheck() const { return static_cast<int>(::SendMessageW(m_hWnd, BM_GETCHECK, 0, 0)); }
};
