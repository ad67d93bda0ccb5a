#include "cbutton.h"

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CWnd::Create(L"BUTTON", lpszCaption, dwStyle, rect, pParentWnd, nID);
}

void CButton::SetCheck(int nCheck) {
    SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck));
}

int CButton::GetCheck() const {
    return static_cast<int>(::SendMessageW(m_hWnd, BM_GETCHECK, 0, 0));
}
