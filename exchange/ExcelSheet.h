#pragma once

#include "AutoInvoke.h"
#include "WorkbookTable.h"

// The text of a cell's value. Numbers have at most six decimals and always a point (10.0 gives "10"). Texts
// stay as they are. Dates, currencies, logical values, errors and all else give an empty text.
CString CellText(const VARIANT& value);

// A sheet of a workbook that Excel has opened.
class ExcelSheet {
  public:
    explicit ExcelSheet(Microsoft::WRL::ComPtr<IDispatch> sheet) : m_pSheet(std::move(sheet)) {}

    // Appends the texts of a column. Column "A" is read first: it ends at its first empty cell, and no other
    // column is read below that row. A column also ends at the first cell that Excel refuses, which may be
    // above that row. False when a cell has no value that can be read, or Excel can't be reached.
    bool ReadColumn(const std::wstring& letters, std::vector<CString>& texts);

  private:
    Microsoft::WRL::ComPtr<IDispatch> m_pSheet;
    AutoMember m_range{L"Range"};
    AutoMember m_value{L"value"};
    std::size_t m_nRows = 0;  // of column "A", once it was read
};
