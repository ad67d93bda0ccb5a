#include "ccombobox.h"

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CWnd::Create(L"COMBOBOX", nullptr, dwStyle, rect, pParentWnd, nID);
}

int CComboBox::Ask(UINT message, int nItem, DWORD_PTR data) const {
    return static_cast<int>(
        ::SendMessageW(m_hWnd, message, static_cast<WPARAM>(nItem), static_cast<LPARAM>(data)));
}

int CComboBox::Ask(UINT message, int nItem, LPCTSTR text) const {
    return Ask(message, nItem, reinterpret_cast<DWORD_PTR>(text));
}

void CComboBox::GetLBText(int nIndex, CString& rString) const {
    const int nLength = GetLBTextLen(nIndex);
    if (nLength < 0) return rString.Empty();
    LPWSTR const buffer = rString.GetBuffer(nLength);
    rString.ReleaseBuffer(GetLBText(nIndex, buffer));
}

DWORD_PTR CComboBox::GetItemData(int nIndex) const {
    return static_cast<DWORD_PTR>(::SendMessageW(m_hWnd, CB_GETITEMDATA, static_cast<WPARAM>(nIndex), 0));
}
