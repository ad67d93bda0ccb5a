#pragma once

#include "cwnd.h"

#include <commctrl.h>

// Tree view. Functions return FALSE or null where there is no such item.
class MFX_MFC_API CTreeCtrl : public CWnd {
  public:
    CTreeCtrl() = default;

    HTREEITEM InsertItem(LPTVINSERTSTRUCT lpInsertStruct) {
        return Item(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(lpInsertStruct));
    }
    BOOL DeleteItem(HTREEITEM hItem) { return Ask(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(hItem)) != 0; }
    BOOL DeleteAllItems() { return DeleteItem(TVI_ROOT); }

    BOOL SetItemText(HTREEITEM hItem, LPCTSTR lpszItem);

    HTREEITEM GetRootItem() const { return Item(TVM_GETNEXTITEM, TVGN_ROOT, 0); }
    BOOL SelectItem(HTREEITEM hItem) {
        return Ask(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(hItem)) != 0;
    }
    BOOL Expand(HTREEITEM hItem, UINT nCode) {  // TVE_EXPAND, TVE_COLLAPSE or TVE_TOGGLE
        return Ask(TVM_EXPAND, nCode, reinterpret_cast<LPARAM>(hItem)) != 0;
    }

  private:
    LRESULT Ask(UINT message, WPARAM wParam, LPARAM lParam) const {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    HTREEITEM Item(UINT message, WPARAM wParam, LPARAM lParam) const {
        return reinterpret_cast<HTREEITEM>(Ask(message, wParam, lParam));
    }
};
