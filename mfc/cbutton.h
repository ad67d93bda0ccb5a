#pragma once

#include "cwnd.h"

class MFX_MFC_API CButton : public CWnd {
  public:
    CButton() = default;

    virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // BST_CHECKED and the like.
    void SetCheck(int nCheck);
    int GetCheck() const;
};
