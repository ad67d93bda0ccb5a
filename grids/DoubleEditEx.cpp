#include "DoubleEditEx.h"

#include "NumberText.h"

BEGIN_MESSAGE_MAP(CDoubleEditEx, CEdit)
    ON_CONTROL_REFLECT(EN_CHANGE, &CDoubleEditEx::OnChange)
END_MESSAGE_MAP()

void CDoubleEditEx::SetAllowNegative(bool bAllowNegative) {
    m_bAllowNegative = bAllowNegative;
}

void CDoubleEditEx::SetLastValidText(const CString& strText) {
    m_strLastValid = strText;
}

// A single-line box also notifies of the texts set here. The recursion ends when the text is the last valid
// one.
void CDoubleEditEx::OnChange() {
    CString strText;
    GetWindowText(strText);
    if (strText.IsEmpty()) return;
    m_bModified = true;
    const CString strAllowed =
        m_bAllowNegative ? CString(L"-") + kNumberCharacters : CString(kNumberCharacters);
    const int nValid = strText.SpanIncluding(strAllowed).GetLength();
    if (nValid == strText.GetLength()) {
        m_strLastValid = strText;
    } else if (nValid == 0) {
        SetWindowText(L"");  // on purpose not the last valid text: a text that starts wrong is dropped
    } else if (strText != m_strLastValid) {
        SetWindowText(m_strLastValid);
        SetSel(m_strLastValid.GetLength(), m_strLastValid.GetLength());
    }
}
