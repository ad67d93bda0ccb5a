#include "XlsxColumns.h"

#include "CellNumber.h"
#include "NumberFormats.h"
#include "Workbook.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr std::uint32_t kMaxRow = 1 << 20, kMaxColumn = 1 << 14;
constexpr std::size_t kMaxCells = 1 << 26;
constexpr std::uint32_t kNoText = 0, kColumnA = 1;  // text, and slot

// 1 for "A"; 0 when the letters are those of no column.
template <class Char>
std::uint32_t ColumnNumber(std::basic_string_view<Char> letters) {
    std::uint32_t nNumber = 0;
    for (const Char ch : letters) {
        const auto nLetter = static_cast<std::uint32_t>(ch & ~0x20) - 'A' + 1;
        if (nLetter - 1 >= 26 || nNumber > kMaxColumn) return 0;
        nNumber = nNumber * 26 + nLetter;
    }
    return nNumber > kMaxColumn ? 0 : nNumber;
}

struct Place {
    std::uint32_t nRow, nColumn;
};

// Of a reference such as "B12".
Place ParseReference(std::string_view reference) {
    const std::size_t nLetters = std::min(reference.find_first_of("0123456789"), reference.size());
    return {ParseIndex(reference.substr(nLetters)), ColumnNumber(reference.substr(0, nLetters))};
}

}  // namespace

XlsxColumns::XlsxColumns(zip_source* pSource, const std::vector<std::wstring>& letters)
    : m_columns(2), m_slots(kMaxColumn + 1) {
    Workbook workbook(pSource);
    m_slots[1] = kColumnA;
    for (const std::wstring& letter : letters) {
        const std::uint32_t nNumber = ColumnNumber(std::wstring_view(letter));
        if (nNumber && !m_slots[nNumber]) {
            m_slots[nNumber] = static_cast<std::uint16_t>(m_columns.size());
            m_columns.emplace_back();
        }
        m_asked.push_back(m_slots[nNumber]);
    }
    const std::optional<std::string> sheet = workbook.FindActiveSheet();
    if (!sheet) return;
    m_texts = workbook.ReadSharedTexts();
    m_nSharedTexts = m_texts.size();
    ReadSheet(workbook.OpenPart(*sheet), workbook.ReadFormats());
    m_nRows = CountRows();
    if (m_nRows * letters.size() > kMaxCells) throw std::length_error("too many cells");
}

void XlsxColumns::ReadSheet(XmlScanner xml, const NumberFormats& formats) {
    std::uint32_t nRow = 0;
    xml.EnterRoot("worksheet");
    xml.ForEachChild([&](std::string_view name) {
        if (name != "sheetData") return;
        xml.ForEachChild([&](std::string_view row) {
            if (row != "row") return;
            const std::string_view number = xml.Attribute("r");
            nRow = number.empty() ? nRow + 1 : ParseIndex(number);
            ReadRow(xml, formats, nRow);
        });
    });
    xml.Finish();
}

void XlsxColumns::ReadRow(XmlScanner& xml, const NumberFormats& formats, std::uint32_t nRow) {
    Place place{nRow, 0};
    xml.ForEachChild([&](std::string_view name) {
        if (name != "c") return;
        const std::string_view reference = xml.Attribute("r");
        place = reference.empty() ? Place{nRow, place.nColumn + 1} : ParseReference(reference);
        if (place.nRow == 0 || place.nRow > kMaxRow || place.nColumn == 0 || place.nColumn > kMaxColumn)
            throw std::runtime_error("a cell outside of the sheet");
        if (const std::uint16_t nSlot = m_slots[place.nColumn])
            m_columns[nSlot].push_back({place.nRow, ReadCell(xml, formats)});
    });
}

std::uint32_t XlsxColumns::ReadCell(XmlScanner& xml, const NumberFormats& formats) {
    const std::string type(xml.Attribute("t"));
    const std::string_view style = xml.Attribute("s");
    const bool bPlain = style.empty() || formats.IsPlain(ParseIndex(style));
    m_value.clear();
    xml.ForEachChild([&](std::string_view name) {
        if (name == "v") return xml.ReadText(m_value);
        if (name == "is") ReadRichText(xml, m_value);
    });
    if (m_value.empty() || type == "b" || type == "e" || type == "d") return kNoText;
    if (type == "s") {
        const std::uint32_t nText = ParseIndex(m_value);
        if (nText >= m_nSharedTexts - 1) throw std::runtime_error("no such text");
        return nText + 1;
    }
    if (type == "str") Unescape(m_value);
    if (type == "str" || type == "inlineStr") return m_texts.Add(m_value);
    if (!type.empty() && type != "n") throw std::runtime_error("a cell of an unknown type");
    if (!bPlain) return kNoText;
    FormatCellNumber(m_value, m_value);
    return m_texts.Add(m_value);
}

std::size_t XlsxColumns::CountRows() const {
    std::vector<std::uint32_t> texts;
    for (const auto& [nRow, nText] : m_columns[kColumnA]) {
        if (nRow > texts.size()) texts.resize(nRow);
        texts[nRow - 1] = nText;
    }
    const auto empty = [this](std::uint32_t nText) { return m_texts[nText].empty(); };
    return static_cast<std::size_t>(std::find_if(texts.begin(), texts.end(), empty) - texts.begin());
}
