#include "ctreectrl.h"

#include <vector>

CString CTreeCtrl::GetItemText(HTREEITEM hItem) const {
    std::vector<wchar_t> text(260);  // grown until the whole text fits
    for (;;) {
        TVITEMW item{};
        item.mask = TVIF_TEXT | TVIF_HANDLE;
        item.hItem = hItem;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        if (!Ask(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item))) return CString();
        const CString strText(item.pszText);
        if (strText.GetLength() + 1 < item.cchTextMax) return strText;
        text.resize(text.size() * 2);
    }
}

BOOL CTreeCtrl::SetItemText(HTREEITEM hItem, LPCTSTR lpszItem) {
    TVITEMW item{};
    item.mask = TVIF_TEXT | TVIF_HANDLE;
    item.hItem = hItem;
    item.pszText = const_cast<LPWSTR>(lpszItem);
    return Ask(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0;
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const {
    TVITEMW item{};
    item.mask = TVIF_PARAM | TVIF_HANDLE;
    item.hItem = hItem;
    Ask(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return static_cast<DWORD_PTR>(item.lParam);
}
