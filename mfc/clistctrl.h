#pragma once

#include "cheaderctrl.h"

// List view, used as a report. Sub-item 0 is the item itself; functions return FALSE or -1 where there is no
// such item or column.
class MFX_MFC_API CListCtrl : public CWnd {
  public:
    CListCtrl() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(WC_LISTVIEWW, nullptr, dwStyle, rect, pParentWnd, nID);
    }

    // Null in the views without a header.
    CHeaderCtrl* GetHeaderCtrl();
    DWORD SetExtendedStyle(DWORD dwNewStyle);  // returns the previous one

    // Index of the new column; a width of -1 leaves it at the control's default.
    int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const {
        return Ask(LVM_GETCOLUMNW, nCol, reinterpret_cast<LPARAM>(pColumn)) != 0;
    }
    BOOL SetColumn(int nCol, const LVCOLUMN* pColumn) {
        return Ask(LVM_SETCOLUMNW, nCol, reinterpret_cast<LPARAM>(pColumn)) != 0;
    }
    int GetColumnWidth(int nCol) const { return static_cast<int>(Ask(LVM_GETCOLUMNWIDTH, nCol)); }

    int GetItemCount() const { return static_cast<int>(Ask(LVM_GETITEMCOUNT)); }
    int InsertItem(int nItem, LPCTSTR lpszItem);                      // index
    void SetItemCount(int nItems) { Ask(LVM_SETITEMCOUNT, nItems); }  // room for so many
    BOOL EnsureVisible(int nItem, BOOL bPartialOK) { return Ask(LVM_ENSUREVISIBLE, nItem, bPartialOK) != 0; }
    BOOL Scroll(CSize size) { return Ask(LVM_SCROLL, size.cx, size.cy) != 0; }  // by pixels
    BOOL DeleteAllItems() { return Ask(LVM_DELETEALLITEMS) != 0; }
    BOOL DeleteItem(int nItem) { return Ask(LVM_DELETEITEM, nItem) != 0; }

    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
    CString GetItemText(int nItem, int nSubItem) const;
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);

    // The next item behind nItem that has the properties (LVNI_...); -1 starts before the first.
    int GetNextItem(int nItem, int nFlags) const {
        return static_cast<int>(Ask(LVM_GETNEXTITEM, nItem, MAKELPARAM(nFlags, 0)));
    }
    UINT GetSelectedCount() const { return static_cast<UINT>(Ask(LVM_GETSELECTEDCOUNT)); }

    // Client coordinates; nArea is LVIR_BOUNDS, LVIR_ICON or LVIR_LABEL.
    BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref);
    // Index of the item at pInfo->pt, -1 for none; the rest of pInfo is filled.
    int SubItemHitTest(LPLVHITTESTINFO pInfo);

  private:
    LRESULT Ask(UINT message, int nItem = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(m_hWnd, message, static_cast<WPARAM>(nItem), lParam);
    }
};
