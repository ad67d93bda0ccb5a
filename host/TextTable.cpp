#include "TextTable.h"

#include "Console.h"
#include "Text.h"

#include <algorithm>

namespace {

bool IsWide(wchar_t ch) {
    return (ch >= 0x1100 && ch <= 0x115F) || (ch >= 0x2E80 && ch <= 0xA4CF) ||
           (ch >= 0xAC00 && ch <= 0xD7A3) || (ch >= 0xF900 && ch <= 0xFAFF) ||
           (ch >= 0xFE30 && ch <= 0xFE6F) || (ch >= 0xFF00 && ch <= 0xFF60) ||
           (ch >= 0xFFE0 && ch <= 0xFFE6) || (ch >= 0xD83C && ch <= 0xD83E) ||
           (ch >= 0xD840 && ch <= 0xD8BF);  // first halves: emoji, ideographs
}

bool IsZeroWidth(wchar_t ch) {
    return (ch >= 0x0300 && ch <= 0x036F) ||
           (ch >= 0xDC00 && ch <= 0xDFFF);  // the pair's first half is counted
}

std::size_t DisplayWidth(const std::string& text) {
    const CString strText = FromUtf8(text);
    std::size_t nWidth = 0;
    for (int i = 0; i < strText.GetLength(); ++i)
        if (!IsZeroWidth(strText[i])) nWidth += IsWide(strText[i]) ? 2 : 1;
    return nWidth;
}

}  // namespace

void TextTable::Add(std::vector<std::string> cells) {
    Measure(cells);
    m_rows.push_back(std::move(cells));
}

std::string TextTable::Format(int nIndent) const {
    std::string text;
    for (const auto& row : m_rows) text += FormatRow(row, nIndent);
    return text;
}

void TextTable::Measure(const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i)
        m_widths[i] = std::max(m_widths[i], DisplayWidth(Escaped(cells[i])));
}

std::string TextTable::FormatRow(const std::vector<std::string>& cells, int nIndent) const {
    std::string line(static_cast<std::size_t>(nIndent), ' ');
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string cell = Escaped(cells[i]), padding(m_widths[i] - DisplayWidth(cell), ' ');
        line += i == 0 ? "" : "  ";
        line += m_columns[i] == Align::Right ? padding + cell : cell + padding;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}
