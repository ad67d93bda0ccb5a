#include "XlsxColumns.h"

#include "CellNumber.h"
#include "Limits.h"
#include "NumberFormats.h"
#include "RichText.h"
#include "Workbook.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr std::uint32_t kEmptyString = 0;
constexpr std::uint16_t kUnreadSlot = 0, kColumnASlot = 1;

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

struct CellReference {
    std::uint32_t nRow, nColumn;
};

// "B12" is row 12, column 2.
CellReference ParseCellReference(std::string_view reference) {
    std::size_t nLetters = 0;
    while (nLetters < reference.size() && (reference[nLetters] < '0' || reference[nLetters] > '9'))
        ++nLetters;
    return {ParseIndex(reference.substr(nLetters)), ColumnNumber(reference.substr(0, nLetters))};
}

bool IsInSheet(const CellReference& cell) {
    return cell.nRow > 0 && cell.nRow <= kMaxRow && cell.nColumn > 0 && cell.nColumn <= kMaxColumn;
}

}  // namespace

XlsxColumns::XlsxColumns(zip_source* pSource, const std::vector<std::wstring>& letters) {
    Workbook workbook(pSource);
    RequestColumns(letters);
    const std::optional<std::string> sheet = workbook.FindActiveSheet();
    if (!sheet) return;
    m_strings = workbook.ReadSharedStrings();
    m_nSharedStrings = m_strings.size() - 1;
    const NumberFormats formats = workbook.ReadNumberFormats();
    ReadSheet(workbook.OpenPart(*sheet), formats);
    m_nRows = CountRows();
    CheckTableSize();
}

void XlsxColumns::RequestColumns(const std::vector<std::wstring>& letters) {
    m_columns.resize(kColumnASlot + 1);
    m_slots.resize(kMaxColumn + 1);
    m_slots[1] = kColumnASlot;
    for (const std::wstring& letter : letters) {
        const std::uint32_t nNumber = ColumnNumber(std::wstring_view(letter));
        if (nNumber && m_slots[nNumber] == kUnreadSlot) {
            m_slots[nNumber] = static_cast<std::uint16_t>(m_columns.size());
            m_columns.emplace_back();
        }
        m_requestedSlots.push_back(m_slots[nNumber]);
    }
}

// The cells of one column at a time are still there when the table is full (TakeTexts). A text of the table
// has memory of its own when it is longer than a string holds in itself.
void XlsxColumns::CheckTableSize() const {
    constexpr std::size_t kAllocationBytes = 32, kMaxShortText = 7;
    const std::size_t nTableCells = m_nRows * m_requestedSlots.size();
    if (nTableCells > kMaxTableCells) throw std::length_error("too large a table");
    std::size_t nBytes = m_strings.CountBytes() + m_nRows * sizeof(Cell) + nTableCells * sizeof(std::wstring);
    for (const std::uint16_t nSlot : m_requestedSlots)
        for (const auto& [nRow, nString] : m_columns[nSlot]) {
            const std::size_t nLength = m_strings[nString].size();
            if (nRow <= m_nRows && nLength > kMaxShortText)
                nBytes += nLength * sizeof(wchar_t) + kAllocationBytes;
        }
    if (nBytes > kMaxReadBytes) throw std::length_error("too large a table");
}

void XlsxColumns::ReadSheet(XmlScanner xml, const NumberFormats& formats) {
    std::uint32_t nRow = 0;
    bool bData = false;
    xml.EnterRoot("worksheet");
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

// A cell without a reference stands beside the one before it.
void XlsxColumns::ReadRow(XmlScanner& xml, const NumberFormats& formats, std::uint32_t nRow) {
    CellReference cell{nRow, 0};
    xml.ForEachChild([&](std::string_view name) {
        if (name != "c") return;
        const std::string_view reference = xml.Attribute("r");
        cell = reference.empty() ? CellReference{nRow, cell.nColumn + 1} : ParseCellReference(reference);
        if (!IsInSheet(cell)) throw std::runtime_error("a cell outside of the sheet");
        const std::uint16_t nSlot = m_slots[cell.nColumn];
        if (nSlot == kUnreadSlot) return;
        if (m_nCells++ == kMaxTableCells) throw std::length_error("too many cells");
        m_columns[nSlot].push_back({cell.nRow, ReadCell(xml, formats)});
    });
}

// Automation's clients get no text for logical values, errors and dates.
XlsxColumns::CellType XlsxColumns::ParseCellType(std::string_view type) {
    if (type.empty() || type == "n") return CellType::Number;
    if (type == "s") return CellType::SharedString;
    if (type == "inlineStr") return CellType::InlineString;
    if (type == "str") return CellType::FormulaString;
    if (type == "b" || type == "e" || type == "d") return CellType::NoText;
    throw std::runtime_error("a cell of an unknown type");
}

// Returns the number of the cell's string; so do the next three.
std::uint32_t XlsxColumns::ReadCell(XmlScanner& xml, const NumberFormats& formats) {
    const CellType type = ParseCellType(xml.Attribute("t"));
    const std::string_view style = xml.Attribute("s");
    const bool bPlain = formats.IsPlain(style.empty() ? 0 : ParseIndex(style));
    std::uint32_t nString = kEmptyString;
    xml.ForEachChild([&](std::string_view name) {
        if (name == "v" && (type != CellType::Number || bPlain)) nString = ReadValue(xml, type);
        if (name == "is" && type == CellType::InlineString) nString = ReadString(xml, ReadRichText);
    });
    return nString;
}

std::uint32_t XlsxColumns::ReadValue(XmlScanner& xml, CellType type) {
    if (type == CellType::FormulaString || type == CellType::InlineString)
        return ReadString(xml, ReadPlainText);
    const std::string_view value = xml.ReadText(m_text);
    if (value.empty() || type == CellType::NoText) return kEmptyString;
    if (type == CellType::SharedString) return SharedString(value);
    Digits digits;
    return m_strings.Add(FormatCellNumber(value, digits));
}

std::uint32_t XlsxColumns::ReadString(XmlScanner& xml, void (*read)(XmlScanner&, std::string&)) {
    m_text.clear();
    read(xml, m_text);
    return m_strings.Add(m_text);
}

std::uint32_t XlsxColumns::SharedString(std::string_view index) const {
    const std::uint32_t nIndex = ParseIndex(index);
    if (nIndex >= m_nSharedStrings) throw std::runtime_error("no such shared string");
    return nIndex + 1;
}

// Rows of column A above its first empty cell.
std::size_t XlsxColumns::CountRows() const {
    std::vector<std::uint32_t> strings;
    for (const auto& [nRow, nString] : m_columns[kColumnASlot]) {
        if (nRow > strings.size()) strings.resize(nRow);
        strings[nRow - 1] = nString;
    }
    const auto isEmpty = [this](std::uint32_t nString) { return m_strings[nString].empty(); };
    return static_cast<std::size_t>(std::find_if(strings.begin(), strings.end(), isEmpty) - strings.begin());
}
