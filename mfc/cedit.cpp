#include "cedit.h"

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CWnd::Create(L"EDIT", nullptr, dwStyle, rect, pParentWnd, nID);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(nStartChar), nEndChar);
    if (!bNoScroll) SendMessage(EM_SCROLLCARET);
}

void CEdit::GetSel(int& nStartChar, int& nEndChar) const {
    ::SendMessageW(m_hWnd, EM_GETSEL, reinterpret_cast<WPARAM>(&nStartChar),
                   reinterpret_cast<LPARAM>(&nEndChar));
}

void CEdit::ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo) {
    SendMessage(EM_REPLACESEL, static_cast<WPARAM>(bCanUndo), reinterpret_cast<LPARAM>(lpszNewText));
}

void CEdit::SetLimitText(UINT nMax) {
    SendMessage(EM_SETLIMITTEXT, nMax);
}

BOOL CEdit::SetReadOnly(BOOL bReadOnly) {
    return SendMessage(EM_SETREADONLY, static_cast<WPARAM>(bReadOnly)) != 0;
}
