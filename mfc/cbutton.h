#pragma once

#include "cwnd.h"

class MFX_MFC_API CButton : public CWnd {
  public:
    CButton() = default;

    int GetCheck() const { return static_cast<int>(::SendMessageW(m_hWnd, BM_GETCHECK, 0, 0)); }
    void SetCheck(int nCheck) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck)); }
};
