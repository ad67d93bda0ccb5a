#pragma once

#include "cwnd.h"

#include <commctrl.h>

// Shows texts about windows while the pointer rests on them. The parent passes each message to RelayEvent.
class MFX_MFC_API CToolTipCtrl : public CWnd {
  public:
    CToolTipCtrl() = default;

    virtual BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0) {
        return CWnd::CreateEx(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | dwStyle, CRect(0, 0, 0, 0), pParentWnd,
                              0);
    }

    // A text for a window, or for a rectangle of its client area that has an id of its own.
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText = LPSTR_TEXTCALLBACK, LPCRECT lpRectTool = NULL,
                 UINT_PTR nIDTool = 0);
    void UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    void GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool = 0) const;
    int SetMaxTipWidth(int iWidth) {  // pixels; longer texts have several lines. Returns the previous width
        return static_cast<int>(SendMessage(TTM_SETMAXTIPWIDTH, 0, iWidth));
    }
    void RelayEvent(LPMSG lpMsg);
};
