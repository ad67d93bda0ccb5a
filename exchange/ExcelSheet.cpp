#include "ExcelSheet.h"

#include "XmlNumber.h"

CString CellText(const VARIANT& value) {
    if (value.vt == VT_I2) return FormatTrimmed(value.iVal);
    if (value.vt == VT_I4) return FormatTrimmed(value.lVal);
    if (value.vt == VT_R4) return FormatTrimmed(static_cast<double>(value.fltVal));
    if (value.vt == VT_R8) return FormatTrimmed(value.dblVal);
    if (value.vt == VT_BSTR) return CString(value.bstrVal, static_cast<int>(SysStringLen(value.bstrVal)));
    return CString();
}

bool ExcelSheet::ReadColumn(const std::wstring& letter, std::vector<CString>& texts) {
    const bool bDecides = letter == L"A";
    for (std::size_t nRow = 1; bDecides || nRow <= m_nRows; ++nRow) {
        CString strAddress;
        strAddress.Format(L"%s%d", letter.c_str(), static_cast<int>(nRow));
        const Variant address(strAddress);
        Variant range, value;
        if (FAILED(AutoInvoke(AutoPropertyGet, &range, m_pSheet.Get(), m_range, 1,
                              static_cast<VARIANT>(address))))
            break;  // behind the sheet's last row
        if (FAILED(AutoInvoke(AutoPropertyGet, &value, range.Object().Get(), m_value, 0))) return false;
        const CString strText = CellText(value);
        if (bDecides && strText.IsEmpty()) break;
        texts.push_back(strText);
    }
    if (bDecides) m_nRows = texts.size();
    return true;
}
