#pragma once

#include "StringPool.h"
#include "Unicode.h"
#include "XmlScanner.h"

#include <algorithm>
#include <string>
#include <vector>

struct zip_source;
class NumberFormats;

// Columns of the sheet that Excel shows when it opens an .xlsx workbook. Texts of the cells are those that
// Excel's automation would give: numbers with at most six decimals (10.0 gives "10"), texts, results of
// formulas; nothing for dates, currencies, logical values and errors. The first empty cell of column A ends
// all columns.
class XlsxColumns {
  public:
    // Reads the columns of these letters. A column that no sheet has is empty. Takes over the source. Throws
    // std::exception when there is no workbook, when a part of it that these columns need is damaged, or when
    // it is too large (Limits.h).
    XlsxColumns(zip_source* pSource, const std::vector<std::wstring>& letters);

    // Texts of the nth requested column, from row 1 down; once for each column, in the order of the request.
    // Text is constructible from const wchar_t* and Length.
    template <class Text, class Length = std::size_t>
    std::vector<Text> TakeTexts(std::size_t nColumn);

  private:
    struct Cell {
        std::uint32_t nRow, nString;
    };
    // Cells in the order of the file. A later one in the same row replaces an earlier one.
    using Column = std::vector<Cell>;
    enum class CellType { Number, SharedString, InlineString, FormulaString, NoText };

    void RequestColumns(const std::vector<std::wstring>& letters);
    void ReadSheet(XmlScanner xml, const NumberFormats& formats);
    void ReadRow(XmlScanner& xml, const NumberFormats& formats, std::uint32_t nRow);
    static CellType ParseCellType(std::string_view type);
    std::uint32_t ReadCell(XmlScanner& xml, const NumberFormats& formats);
    std::uint32_t ReadValue(XmlScanner& xml, CellType type);
    std::uint32_t ReadString(XmlScanner& xml, void (*read)(XmlScanner&, std::string&));
    std::uint32_t SharedString(std::string_view index) const;
    std::size_t CountRows() const;
    void CheckTableSize() const;

    // Slot 0 stands for columns that are not read, slot 1 for column A.
    std::vector<Column> m_columns;                // by slot
    std::vector<std::uint16_t> m_slots;           // by a column's number in the sheet, from 1
    std::vector<std::uint16_t> m_requestedSlots;  // in the order of the request
    StringPool m_strings;                         // the shared ones, then those of cells
    std::size_t m_nSharedStrings = 0, m_nCells = 0, m_nRows = 0;
    std::string m_text;  // of the cell being read; a member to reuse its memory
};

template <class Text, class Length>
std::vector<Text> XlsxColumns::TakeTexts(std::size_t nColumn) {
    const auto slot = m_requestedSlots.begin() + static_cast<std::ptrdiff_t>(nColumn);
    std::vector<Text> texts(*slot ? m_nRows : 0);
    std::wstring wide;
    for (const auto& [nRow, nString] : m_columns[*slot]) {
        if (nRow > texts.size()) continue;
        ToWide(m_strings[nString], wide);
        texts[nRow - 1] = Text(wide.data(), static_cast<Length>(wide.size()));
    }
    const bool bAskedAgain = std::find(slot + 1, m_requestedSlots.end(), *slot) != m_requestedSlots.end();
    if (!bAskedAgain) Column().swap(m_columns[*slot]);  // the table takes enough memory
    return texts;
}
