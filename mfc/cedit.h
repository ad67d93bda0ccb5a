#pragma once

#include "cwnd.h"

class MFX_MFC_API CEdit : public CWnd {
  public:
    CEdit() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // From 0 to -1 is all, from -1 none.
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    void GetSel(int& nStartChar, int& nEndChar) const;
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE);
    void SetLimitText(UINT nMax);  // for typing; 0 is the largest there is
    void LimitText(int nChars = 0) { SetLimitText(static_cast<UINT>(nChars)); }
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
};
