#pragma once

#include "TextPool.h"
#include "Unicode.h"
#include "XmlScanner.h"

#include <string>
#include <vector>

struct zip_source;
class NumberFormats;

// Columns of the sheet that is active when Excel opens an .xlsx workbook, with the texts that its automation
// would give: numbers with at most six decimals (10.0 gives "10"), texts, results of formulas; nothing for
// dates, currencies, logical values and errors. Column A ends at its first empty cell, and there end all.
class XlsxColumns {
  public:
    // Reads the columns of these letters; what is no column of a sheet stays empty. Takes over the source.
    // Throws std::exception when there is no workbook, when it is damaged (as far as these columns need it),
    // or too large: see Package, and more than 16 million cells or 256 MB of text in the table.
    XlsxColumns(zip_source* pSource, const std::vector<std::wstring>& letters);

    // Texts of the nth column asked for, from row 1 down. Text is made of const wchar_t* and Length.
    template <class Text, class Length = std::size_t>
    std::vector<Text> Texts(std::size_t nColumn) const;

  private:
    // A column's cells as they come. A later one at the same row replaces an earlier one.
    struct Cell {
        std::uint32_t nRow, nText;
    };
    using Column = std::vector<Cell>;
    enum class CellType { Number, SharedText, InlineText, FormulaText, NoText };

    void ReadSheet(XmlScanner xml, const NumberFormats& formats);
    void ReadRow(XmlScanner& xml, const NumberFormats& formats, std::uint32_t nRow);
    static CellType ParseCellType(std::string_view type);
    std::uint32_t ReadCell(XmlScanner& xml, const NumberFormats& formats);
    std::uint32_t ReadValue(XmlScanner& xml, CellType type);
    std::uint32_t ReadText(XmlScanner& xml, void (*read)(XmlScanner&, std::string&));
    std::size_t CountRows() const;
    void CheckSize() const;

    std::vector<Column> m_columns;  // those that are read: none, column A, and what else is asked for
    std::vector<std::uint16_t>
        m_slots;  // in m_columns, of each column of a sheet from number 1; 0 for others
    std::vector<std::uint16_t> m_asked;  // slot of each column asked for
    TextPool m_texts;
    std::size_t m_nSharedTexts = 0, m_nCells = 0, m_nRows = 0;
    std::string m_text;  // of the cell being read; kept for its memory
};

template <class Text, class Length>
std::vector<Text> XlsxColumns::Texts(std::size_t nColumn) const {
    const std::uint16_t nSlot = m_asked[nColumn];
    std::vector<Text> texts(nSlot ? m_nRows : 0);
    std::wstring wide;
    for (const auto& [nRow, nText] : m_columns[nSlot]) {
        if (nRow > texts.size()) continue;
        ToWide(m_texts[nText], wide);
        texts[nRow - 1] = Text(wide.data(), static_cast<Length>(wide.size()));
    }
    return texts;
}
