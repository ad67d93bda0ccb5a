#include "XlsxColumns.h"

#include "CellNumber.h"
#include "NumberFormats.h"
#include "Workbook.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr std::uint32_t kMaxRow = 1 << 20, kMaxColumn = 1 << 14;
constexpr std::size_t kMaxCells = 1 << 24, kMaxText = 1 << 28;
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
    std::size_t nLetters = 0;
    while (nLetters < reference.size() && (reference[nLetters] < '0' || reference[nLetters] > '9'))
        ++nLetters;
    return {ParseIndex(reference.substr(nLetters)), ColumnNumber(reference.substr(0, nLetters))};
}

}  // namespace

XlsxColumns::XlsxColumns(zip_source* pSource, const std::vector<std::wstring>& letters) {
    Workbook workbook(pSource);
    m_columns.resize(2);
    m_slots.resize(kMaxColumn + 1);
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
    const NumberFormats formats = workbook.ReadFormats();
    ReadSheet(workbook.OpenPart(*sheet), formats);
    m_nRows = CountRows();
    CheckSize();
}

// A text that cells share counts for each of them.
void XlsxColumns::CheckSize() const {
    std::size_t nText = 0;
    if (m_nRows * m_asked.size() > kMaxCells) throw std::length_error("too large a table");
    for (const std::uint16_t nSlot : m_asked)
        for (const Cell& cell : m_columns[nSlot])
            if (cell.nRow <= m_nRows) nText += m_texts[cell.nText].size();
    if (nText > kMaxText) throw std::length_error("too large a table");
}

void XlsxColumns::ReadSheet(XmlScanner xml, const NumberFormats& formats) {
    std::uint32_t nRow = 0;
    xml.EnterRoot("worksheet");
    bool bData = false;
    xml.ForEachChild([&](std::string_view name) {
        if (name != "sheetData") return;
        bData = true;
        xml.ForEachChild([&](std::string_view row) {
            if (row != "row") return;
            const std::string_view number = xml.Attribute("r");
            nRow = number.empty() ? nRow + 1 : ParseIndex(number);
            ReadRow(xml, formats, nRow);
        });
    });
    xml.Finish();
    if (!bData) throw std::runtime_error("a sheet without data");
}

void XlsxColumns::ReadRow(XmlScanner& xml, const NumberFormats& formats, std::uint32_t nRow) {
    Place place{nRow, 0};
    xml.ForEachChild([&](std::string_view name) {
        if (name != "c") return;
        const std::string_view reference = xml.Attribute("r");
        place = reference.empty() ? Place{nRow, place.nColumn + 1} : ParseReference(reference);
        if (place.nRow == 0 || place.nRow > kMaxRow || place.nColumn == 0 || place.nColumn > kMaxColumn)
            throw std::runtime_error("a cell outside of the sheet");
        const std::uint16_t nSlot = m_slots[place.nColumn];
        if (nSlot == 0) return;
        if (m_nCells++ == kMaxCells) throw std::length_error("too many cells");
        m_columns[nSlot].push_back({place.nRow, ReadCell(xml, formats)});
    });
}

// Logical values, errors and dates are no text to automation.
XlsxColumns::CellType XlsxColumns::ParseCellType(std::string_view type) {
    if (type.empty() || type == "n") return CellType::Number;
    if (type == "s") return CellType::SharedText;
    if (type == "inlineStr") return CellType::InlineText;
    if (type == "str") return CellType::FormulaText;
    if (type == "b" || type == "e" || type == "d") return CellType::NoText;
    throw std::runtime_error("a cell of an unknown type");
}

std::uint32_t XlsxColumns::ReadCell(XmlScanner& xml, const NumberFormats& formats) {
    const CellType type = ParseCellType(xml.Attribute("t"));
    const std::string_view style = xml.Attribute("s");
    const bool bPlain = formats.IsPlain(style.empty() ? 0 : ParseIndex(style));
    std::uint32_t nText = kNoText;
    xml.ForEachChild([&](std::string_view name) {
        if (name == "v" && (type != CellType::Number || bPlain)) nText = ReadValue(xml, type);
        if (name == "is" && type == CellType::InlineText) nText = ReadText(xml, ReadRichText);
    });
    return nText;
}

std::uint32_t XlsxColumns::ReadValue(XmlScanner& xml, CellType type) {
    if (type == CellType::FormulaText || type == CellType::InlineText) return ReadText(xml, ReadPlainText);
    const std::string_view value = xml.ReadText(m_text);
    if (value.empty()) return kNoText;
    if (type == CellType::SharedText) {
        const std::uint32_t nText = ParseIndex(value);
        if (nText >= m_nSharedTexts - 1) throw std::runtime_error("no such text");
        return nText + 1;
    }
    if (type != CellType::Number) return kNoText;
    Digits digits;
    return m_texts.Add(FormatCellNumber(value, digits));
}

std::uint32_t XlsxColumns::ReadText(XmlScanner& xml, void (*read)(XmlScanner&, std::string&)) {
    m_text.clear();
    read(xml, m_text);
    return m_texts.Add(m_text);
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
