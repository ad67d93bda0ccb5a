#pragma once

#include "cwnd.h"

// Functions return CB_ERR (-1) where there is no such item.
class MFX_MFC_API CComboBox : public CWnd {
  public:
    CComboBox() = default;

    // The height of rect includes the list.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(L"COMBOBOX", nullptr, dwStyle, rect, pParentWnd, nID);
    }

    // Index of the new item.
    int AddString(LPCTSTR lpszString) { return Ask(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszString)); }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const {  // from behind that index; case is ignored
        return Ask(CB_FINDSTRINGEXACT, nIndexStart, reinterpret_cast<LPARAM>(lpszFind));
    }
    void GetLBText(int nIndex, CString& rString) const;
    int GetLBTextLen(int nIndex) const { return Ask(CB_GETLBTEXTLEN, nIndex); }
    void ResetContent() { Ask(CB_RESETCONTENT); }
    int SetCurSel(int nSelect) { return Ask(CB_SETCURSEL, nSelect); }  // -1: none
    int GetCurSel() const { return Ask(CB_GETCURSEL); }
    BOOL LimitText(int nMaxChars) { return Ask(CB_LIMITTEXT, nMaxChars); }  // 0: the largest there is

  private:
    int Ask(UINT message, int nItem = 0, LPARAM lParam = 0) const {
        return static_cast<int>(::SendMessageW(m_hWnd, message, static_cast<WPARAM>(nItem), lParam));
    }
};
