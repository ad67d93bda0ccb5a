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
    for (std::string& cell : cells) cell = Escaped(cell);
    m_rows.push_back(std::move(cells));
}

std::string TextTable::Format(int nIndent) const {
    std::vector<std::size_t> widths(m_columns.size());
    for (const auto& row : m_rows)
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], DisplayWidth(row[i]));

    std::string text;
    for (const auto& row : m_rows) {
        std::string line(static_cast<std::size_t>(nIndent), ' ');
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string padding(widths[i] - DisplayWidth(row[i]), ' ');
            line += i == 0 ? "" : "  ";
            line += m_columns[i] == Align::Right ? padding + row[i] : row[i] + padding;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}
