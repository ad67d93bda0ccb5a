#include "clistctrl.h"

#include "temporaries.h"

#include <vector>

CHeaderCtrl* CListCtrl::GetHeaderCtrl() {
    const auto hHeader = reinterpret_cast<HWND>(Ask(LVM_GETHEADER));
    if (CWnd* const pPermanent = FromHandlePermanent(hHeader)) return dynamic_cast<CHeaderCtrl*>(pPermanent);
    return mfx::TemporaryFor<CHeaderCtrl, &CHeaderCtrl::m_hWnd>(hHeader);
}

DWORD CListCtrl::SetExtendedStyle(DWORD dwNewStyle) {
    return static_cast<DWORD>(Ask(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(dwNewStyle)));
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth, int nSubItem) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = const_cast<LPWSTR>(lpszColumnHeading);
    column.fmt = nFormat;
    if (nWidth != -1) {
        column.mask |= LVCF_WIDTH;
        column.cx = nWidth;
    }
    if (nSubItem != -1) {
        column.mask |= LVCF_SUBITEM;
        column.iSubItem = nSubItem;
    }
    return static_cast<int>(Ask(LVM_INSERTCOLUMNW, nCol, reinterpret_cast<LPARAM>(&column)));
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = nItem;
    item.pszText = const_cast<LPWSTR>(lpszItem);
    return static_cast<int>(Ask(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText) {
    LVITEMW item{};
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPWSTR>(lpszText);
    return Ask(LVM_SETITEMTEXTW, nItem, reinterpret_cast<LPARAM>(&item)) != 0;
}

// The control cuts a text without saying so: one that fills the buffer is asked for again in a larger one.
CString CListCtrl::GetItemText(int nItem, int nSubItem) const {
    std::vector<wchar_t> buffer(128);
    for (;;) {
        LVITEMW item{};
        item.iSubItem = nSubItem;
        item.pszText = buffer.data();
        item.cchTextMax = static_cast<int>(buffer.size());
        const auto nLength =
            static_cast<std::size_t>(Ask(LVM_GETITEMTEXTW, nItem, reinterpret_cast<LPARAM>(&item)));
        if (nLength + 1 < buffer.size()) return CString(item.pszText, static_cast<int>(nLength));
        buffer.resize(buffer.size() * 2);
    }
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask) {
    LVITEMW item{};
    item.state = nState;
    item.stateMask = nMask;
    return Ask(LVM_SETITEMSTATE, nItem, reinterpret_cast<LPARAM>(&item)) != 0;
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) {
    ref = CRect(nArea, iSubItem, 0, 0);
    return Ask(LVM_GETSUBITEMRECT, iItem, reinterpret_cast<LPARAM>(static_cast<RECT*>(&ref))) != 0;
}

int CListCtrl::SubItemHitTest(LPLVHITTESTINFO pInfo) {
    return static_cast<int>(Ask(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(pInfo)));
}
