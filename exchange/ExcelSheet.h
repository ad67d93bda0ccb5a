#pragma once

#include "AutoInvoke.h"
#include "WorkbookTable.h"

#include <cstdint>

// Text of a cell's value: numbers with at most six decimals and always a point (10.0 gives "10"), texts as
// they are, nothing for all else: dates, currencies, logical values, errors.
CString CellText(const VARIANT& value);

// A sheet of a workbook that Excel has opened.
class ExcelSheet {
  public:
    explicit ExcelSheet(Microsoft::WRL::ComPtr<IDispatch> pSheet) : m_pSheet(std::move(pSheet)) {}

    // Appends a column's texts. Column "A" ends at its first empty cell, and there end the columns read
    // later. False when a cell's value can't be had.
    bool ReadColumn(const std::wstring& letter, std::vector<CString>& texts);

  private:
    Microsoft::WRL::ComPtr<IDispatch> m_pSheet;
    AutoMember m_range{L"Range"};
    AutoMember m_value{L"value"};
    std::size_t m_nRows = 0;  // of column "A", once it was read
};
