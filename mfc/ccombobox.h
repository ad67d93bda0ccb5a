#pragma once

#include "cwnd.h"

// Functions return CB_ERR (-1) where there is no such item.
class MFX_MFC_API CComboBox : public CWnd {
  public:
    CComboBox() = default;

    // The height of rect includes the list.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int AddString(LPCTSTR lpszString) { return Ask(CB_ADDSTRING, 0, lpszString); }  // index
    void ResetContent() { Ask(CB_RESETCONTENT); }
    int GetCount() const { return Ask(CB_GETCOUNT); }
    int SetCurSel(int nSelect) { return Ask(CB_SETCURSEL, nSelect); }  // -1: none
    int GetCurSel() const { return Ask(CB_GETCURSEL); }
    int GetLBText(int nIndex, LPTSTR lpszText) const { return Ask(CB_GETLBTEXT, nIndex, lpszText); }
    void GetLBText(int nIndex, CString& rString) const;
    int GetLBTextLen(int nIndex) const { return Ask(CB_GETLBTEXTLEN, nIndex); }

    // Search behind the given item, and round to it, without case; behind -1 is all. SelectString takes the
    // first text that begins so.
    int FindStringExact(int nStart, LPCTSTR lpszFind) const {
        return Ask(CB_FINDSTRINGEXACT, nStart, lpszFind);
    }
    int SelectString(int nStartAfter, LPCTSTR lpsz) { return Ask(CB_SELECTSTRING, nStartAfter, lpsz); }

    int SetItemData(int nIndex, DWORD_PTR dwItemData) { return Ask(CB_SETITEMDATA, nIndex, dwItemData); }
    DWORD_PTR GetItemData(int nIndex) const;

    BOOL LimitText(int nMaxChars) { return Ask(CB_LIMITTEXT, nMaxChars); }  // 0: the largest there is
    void ShowDropDown(BOOL bShowIt = TRUE) { Ask(CB_SHOWDROPDOWN, bShowIt); }
    BOOL GetDroppedState() const { return Ask(CB_GETDROPPEDSTATE); }

  private:
    int Ask(UINT message, int nItem = 0, DWORD_PTR data = 0) const;
    int Ask(UINT message, int nItem, LPCTSTR text) const;
};
