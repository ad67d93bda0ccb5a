#include "XlsSheet.h"

#include <windows.h>
#include <objbase.h>
#include <wrl/client.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <regex>
#include <set>
#include <stdexcept>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace {

// Record types.
enum : unsigned {
    kFormula = 0x06,
    kEndOf = 0x0A,
    kEncrypted = 0x2F,
    kContinue = 0x3C,
    kWindow = 0x3D,
    kSheet = 0x85,
    kNumbers = 0xBD,
    kCellFormat = 0xE0,
    kTexts = 0xFC,
    kSharedText = 0xFD,
    kNumber = 0x203,
    kBoolOrError = 0x205,
    kFormulaText = 0x207,
    kRkNumber = 0x27E,
    kNumberFormat = 0x41E,
    kBeginOf = 0x809
};

using Bytes = std::vector<std::uint8_t>;

// A record with those that continue it, read from its start. Reading past its end throws std::out_of_range.
class Record {
  public:
    // The record at an offset of the stream, which is moved behind it.
    Record(const Bytes& stream, std::size_t& nOffset) {
        m_nType = Word(stream, nOffset);
        do {
            const std::size_t nStart = nOffset + 4, nEnd = nStart + Word(stream, nOffset + 2);
            if (nEnd > stream.size()) throw std::out_of_range("record");
            m_starts.insert(m_bytes.size());
            m_bytes.insert(m_bytes.end(), stream.data() + nStart, stream.data() + nEnd);
            nOffset = nEnd;
        } while (nOffset + 4 <= stream.size() && Word(stream, nOffset) == kContinue);
    }

    unsigned Type() const { return m_nType; }
    std::size_t Left() const { return m_bytes.size() - std::min(m_nPosition, m_bytes.size()); }
    Record& Skip(std::size_t nBytes) {
        m_nPosition += nBytes;
        return *this;
    }
    unsigned U8() { return m_bytes.at(m_nPosition++); }
    unsigned U16() { return static_cast<unsigned>(Number(2)); }
    std::uint32_t U32() { return static_cast<std::uint32_t>(Number(4)); }
    std::uint64_t U64() { return Number(8); }

    // A text of so many characters: flags, numbers of formatting runs and phonetic bytes, characters, those
    // runs and bytes. Where a record is continued within the characters, the width of the following ones is
    // told anew.
    std::wstring Text(unsigned nLength) {
        unsigned nFlags = U8();
        const std::size_t nRuns = nFlags & 8 ? U16() : 0, nPhonetic = nFlags & 4 ? U32() : 0;
        std::wstring text;
        while (nLength-- > 0) {
            if (m_starts.contains(m_nPosition)) nFlags = U8();
            text += static_cast<wchar_t>(nFlags & 1 ? U16() : U8());
        }
        Skip(4 * nRuns + nPhonetic);
        return text;
    }

    // A number in 30 bits: those of an integer or the upper ones of a double, either of them perhaps times
    // 100.
    double Rk() {
        const std::uint32_t nBits = U32();
        const double number = nBits & 2 ? static_cast<std::int32_t>(nBits) >> 2
                                        : std::bit_cast<double>(std::uint64_t{nBits & ~3u} << 32);
        return nBits & 1 ? number / 100 : number;
    }

  private:
    static unsigned Word(const Bytes& stream, std::size_t nOffset) {
        return stream.at(nOffset) | stream.at(nOffset + 1) << 8u;
    }
    std::uint64_t Number(int nBytes) {
        std::uint64_t number = 0;
        for (int i = 0; i < nBytes; ++i) number |= std::uint64_t{U8()} << 8 * i;
        return number;
    }

    unsigned m_nType;
    Bytes m_bytes;
    std::set<std::size_t> m_starts;
    std::size_t m_nPosition = 0;
};

Bytes ReadStream(const std::wstring& path) {
    ComPtr<IStorage> pStorage;
    ComPtr<IStream> pStream;
    STATSTG status{};
    if (FAILED(StgOpenStorage(path.c_str(), nullptr, STGM_READ | STGM_SHARE_DENY_WRITE, nullptr, 0,
                              &pStorage)) ||
        FAILED(pStorage->OpenStream(L"Workbook", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &pStream)) ||
        FAILED(pStream->Stat(&status, STATFLAG_NONAME)))
        throw std::runtime_error("no workbook");
    Bytes bytes(status.cbSize.LowPart);
    ULONG nRead = 0;
    if (FAILED(pStream->Read(bytes.data(), status.cbSize.LowPart, &nRead)) || nRead != bytes.size())
        throw std::runtime_error("unreadable workbook");
    return bytes;
}

// Type of a number under a format such as "yyyy\\-mm\\-dd", "0.00%" or "#,##0.00\\ [$€-40C]".
VARTYPE TypeOf(const std::wstring& format) {
    // "[$-" opens a language; a currency sign may stand in quotation marks.
    static const std::wregex kCurrency(L"[€£¥]|\\$(?!-)");
    static const std::wregex kNoDate(LR"("[^"]*"|\[[A-Za-z]{2,}\]|\[\$[^\]]*\]|[\\_*].)");
    if (std::regex_search(format, kCurrency)) return VT_CY;
    const std::wstring letters = std::regex_replace(format, kNoDate, L"");
    return letters.find_first_of(L"ymdhsYMDHS") != std::wstring::npos ? VT_DATE : VT_R8;
}

class Reader {
  public:
    explicit Reader(Bytes stream) : m_stream(std::move(stream)) { ReadGlobals(); }
    XlsCells ReadSheet();

  private:
    // Calls with each record of the part at an offset, but not of parts within it such as charts.
    template <class Handler>
    void ForEach(std::size_t nOffset, Handler&& handler);
    void ReadGlobals();
    void ReadCell(Record& record);
    void AddNumber(unsigned nFormat, double number);
    void AddFormula(unsigned nFormat, std::uint64_t nResult);
    void AddBoolOrError(unsigned nValue, bool bError);
    void AddText(const std::wstring& text) { m_cells[m_at] = {VT_BSTR, 0, text}; }

    const Bytes m_stream;
    std::size_t m_nActive = 0;
    std::vector<std::size_t> m_sheets;  // offsets
    std::vector<std::wstring> m_texts;
    std::vector<unsigned> m_formats;  // number format of each cell format
    // Of number formats, at first of those built into Excel that are no plain numbers.
    std::map<unsigned, VARTYPE> m_types = {
        {5, VT_CY},    {6, VT_CY},    {7, VT_CY},    {8, VT_CY},    {42, VT_CY},   {44, VT_CY},
        {14, VT_DATE}, {15, VT_DATE}, {16, VT_DATE}, {17, VT_DATE}, {18, VT_DATE}, {19, VT_DATE},
        {20, VT_DATE}, {21, VT_DATE}, {22, VT_DATE}, {45, VT_DATE}, {46, VT_DATE}, {47, VT_DATE}};
    XlsCells m_cells;
    XlsCells::key_type m_at;  // of the cell being read
};

template <class Handler>
void Reader::ForEach(std::size_t nOffset, Handler&& handler) {
    int nDepth = 0;
    do {
        Record record(m_stream, nOffset);
        if (record.Type() == kBeginOf && ++nDepth == 1 && record.U16() != 0x600)
            throw std::runtime_error("no BIFF8");
        if (record.Type() == kEndOf) --nDepth;
        if (nDepth == 1) handler(record);
    } while (nDepth > 0);
}

void Reader::ReadGlobals() {
    ForEach(0, [this](Record& record) {
        switch (record.Type()) {
            case kEncrypted:
                throw std::runtime_error("encrypted");
            case kWindow:
                m_nActive = record.Skip(10).U16();
                break;
            case kSheet:
                m_sheets.push_back(record.U32());
                break;
            case kCellFormat:
                m_formats.push_back(record.Skip(2).U16());
                break;
            case kNumberFormat: {
                const unsigned nFormat = record.U16();
                m_types[nFormat] = TypeOf(record.Text(record.U16()));
                break;
            }
            case kTexts:
                for (record.Skip(8); record.Left() > 0;) m_texts.push_back(record.Text(record.U16()));
                break;
        }
    });
}

XlsCells Reader::ReadSheet() {
    ForEach(m_sheets.at(m_nActive), [this](Record& record) {
        switch (record.Type()) {
            case kFormulaText:
                AddText(record.Text(record.U16()));
                break;
            case kFormula:
            case kNumber:
            case kNumbers:
            case kRkNumber:
            case kSharedText:
            case kBoolOrError: {
                const unsigned nRow = record.U16();
                m_at = {nRow, record.U16()};
                ReadCell(record);
                // Further cells of the row come before the number of its last column.
                while (record.Type() == kNumbers && record.Left() > 2) {
                    ++m_at.second;
                    ReadCell(record);
                }
            }
        }
    });
    return std::move(m_cells);
}

void Reader::ReadCell(Record& record) {
    const unsigned nFormat = m_formats.at(record.U16());
    switch (record.Type()) {
        case kNumber:
            return AddNumber(nFormat, std::bit_cast<double>(record.U64()));
        case kNumbers:
        case kRkNumber:
            return AddNumber(nFormat, record.Rk());
        case kSharedText:
            return AddText(m_texts.at(record.U32()));
        case kFormula:
            return AddFormula(nFormat, record.U64());
        default: {
            const unsigned nValue = record.U8();
            AddBoolOrError(nValue, record.U8() != 0);
        }
    }
}

void Reader::AddNumber(unsigned nFormat, double number) {
    const auto type = m_types.find(nFormat);
    m_cells[m_at] = {type == m_types.end() ? VARTYPE{VT_R8} : type->second, number, L""};
}

// A result that is no number has ones in its upper two bytes, its kind in the first byte and its value in the
// third.
void Reader::AddFormula(unsigned nFormat, std::uint64_t nResult) {
    if (nResult >> 48 != 0xFFFF) return AddNumber(nFormat, std::bit_cast<double>(nResult));
    const unsigned nKind = nResult & 0xFF;
    if (nKind == 1 || nKind == 2) return AddBoolOrError(nResult >> 16 & 0xFF, nKind == 2);
    AddText(L"");  // a text that is not empty follows in a record of its own
}

void Reader::AddBoolOrError(unsigned nValue, bool bError) {
    m_cells[m_at] = {bError ? VARTYPE{VT_ERROR} : VARTYPE{VT_BOOL}, nValue + (bError ? 2000.0 : 0.0), L""};
}

}  // namespace

XlsCells ReadActiveSheet(const std::wstring& path) {
    return Reader(ReadStream(path)).ReadSheet();
}
