#include "DoubleEditEx.h"

#include "NumberText.h"

namespace {

bool HasDecimalComma() {
    wchar_t szSeparator[4] = L"";  // as long as it can be
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, szSeparator, 4);
    return szSeparator[0] == L',';
}

}  // namespace

BEGIN_MESSAGE_MAP(CDoubleEditEx, CEdit)
    ON_WM_CHAR()
    ON_CONTROL_REFLECT(EN_CHANGE, &CDoubleEditEx::OnChange)
END_MESSAGE_MAP()

void CDoubleEditEx::SetAllowNegative(bool bAllowNegative) {
    m_bAllowNegative = bAllowNegative;
}

void CDoubleEditEx::SetLastValidText(const CString& strText) {
    m_strLastValid = strText;
}

// A refused comma would make "12,5" a number ten times as large. CEdit::OnChar passes on the message as it
// came.
void CDoubleEditEx::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags) {
    if (nChar == L',' && HasDecimalComma())
        DefWindowProc(WM_CHAR, L'.', MAKELPARAM(nRepCnt, nFlags));
    else
        CEdit::OnChar(nChar, nRepCnt, nFlags);
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
