#pragma once

#include "cwnd.h"

// One exchange between a window's controls and its object's members.
class MFX_MFC_API CDataExchange {
  public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
        : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd) {}

    // Null if there is no such control.
    HWND PrepareCtrl(int nIDC) { return ::GetDlgItem(m_pDlgWnd->GetSafeHwnd(), nIDC); }

    BOOL m_bSaveAndValidate;  // TRUE from controls to members
    CWnd* m_pDlgWnd;
};

// Subclasses the control at the first exchange. Without such a control it does nothing: GetSafeHwnd of
// rControl stays null, and the other members are exchanged.
MFX_MFC_API void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
