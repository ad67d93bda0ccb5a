#include "ctreectrl.h"

BOOL CTreeCtrl::SetItemText(HTREEITEM hItem, LPCTSTR lpszItem) {
    TVITEMW item{};
    item.mask = TVIF_TEXT | TVIF_HANDLE;
    item.hItem = hItem;
    item.pszText = const_cast<LPWSTR>(lpszItem);
    return Ask(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0;
}
