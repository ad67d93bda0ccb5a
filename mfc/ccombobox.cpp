#include "ccombobox.h"

void CComboBox::GetLBText(int nIndex, CString& rString) const {
    const int nLength = GetLBTextLen(nIndex);
    if (nLength < 0) return;
    const LPWSTR buffer = rString.GetBuffer(nLength + 1);
    rString.ReleaseBuffer(Ask(CB_GETLBTEXT, nIndex, reinterpret_cast<LPARAM>(buffer)));
}
