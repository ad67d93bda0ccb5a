#pragma once

#include "cwnd.h"

#include <commctrl.h>

class MFX_MFC_API CHeaderCtrl : public CWnd {
  public:
    CHeaderCtrl() = default;

    int GetItemCount() const { return static_cast<int>(::SendMessageW(m_hWnd, HDM_GETITEMCOUNT, 0, 0)); }
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const {
        return ::SendMessageW(m_hWnd, HDM_GETITEMRECT, static_cast<WPARAM>(nIndex), (LPARAM)lpRect) != 0;
    }
};
