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

// Whether Excel itself refused the call. Anything else went wrong on the way to it.
static bool IsExcelError(HRESULT result) {
    const int facility = HRESULT_FACILITY(result);
    return FAILED(result) && (facility == FACILITY_DISPATCH || facility == FACILITY_CONTROL);
}

bool ExcelSheet::ReadColumn(const std::wstring& letters, std::vector<CString>& texts) {
    const bool decidesRows = letters == L"A";
    for (std::size_t row = 1; decidesRows || row <= m_nRows; ++row) {
        const Variant address((letters + std::to_wstring(row)).c_str());
        Variant range, value;
        const HRESULT found =
            AutoInvoke(AutoPropertyGet, &range, m_pSheet.Get(), m_range, 1, static_cast<VARIANT>(address));
        if (IsExcelError(found)) break;  // behind the sheet's last row
        if (FAILED(found) || FAILED(AutoInvoke(AutoPropertyGet, &value, range.Object().Get(), m_value, 0)))
            return false;
        const CString text = CellText(value);
        if (decidesRows && text.IsEmpty()) break;
        texts.push_back(text);
    }
    if (decidesRows) m_nRows = texts.size();
    return true;
}
