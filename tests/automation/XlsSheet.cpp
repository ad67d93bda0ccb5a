#include "XlsSheet.h"

#include <windows.h>
#include <objbase.h>
#include <wrl/client.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <regex>
#include <set>
#include <stdexcept>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace {

// Record types.
constexpr WORD kFormula = 0x06, kEndOf = 0x0A, kEncrypted = 0x2F, kContinue = 0x3C, kWindow = 0x3D,
               kSheet = 0x85, kNumbers = 0xBD, kCellFormat = 0xE0, kTexts = 0xFC, kSharedText = 0xFD,
               kNumber = 0x203, kBoolOrError = 0x205, kFormulaText = 0x207, kRkNumber = 0x27E,
               kNumberFormat = 0x41E, kBeginOf = 0x809;

using Bytes = std::vector<BYTE>;

template <class T>
T At(const Bytes& bytes, std::size_t nOffset) {
    if (nOffset + sizeof(T) > bytes.size()) throw std::out_of_range("the workbook is damaged");
    T value;
    std::memcpy(&value, &bytes[nOffset], sizeof value);
    return value;
}

// A record with those that continue it, read from its start.
class Record {
  public:
    // The record at an offset of the stream, which is moved behind it.
    Record(const Bytes& stream, std::size_t& nOffset) : m_nType(At<WORD>(stream, nOffset)) {
        do {
            const std::size_t nStart = nOffset + 4;
            nOffset = std::min(nStart + At<WORD>(stream, nOffset + 2), stream.size());
            m_starts.insert(m_bytes.size());
            m_bytes.insert(m_bytes.end(), stream.data() + nStart, stream.data() + nOffset);
        } while (nOffset + 4 <= stream.size() && At<WORD>(stream, nOffset) == kContinue);
    }

    WORD Type() const { return m_nType; }
    bool Has(std::size_t nBytes) const { return m_nPosition + nBytes <= m_bytes.size(); }
    void Skip(std::size_t nBytes) { m_nPosition += nBytes; }

    template <class T>
    T Next() {
        m_nPosition += sizeof(T);
        return At<T>(m_bytes, m_nPosition - sizeof(T));
    }

    // Flags, numbers of formatting runs and phonetic bytes, characters, those runs and bytes. Where a record
    // is continued within the characters, the width of the following ones is told anew.
    std::wstring NextText(WORD nLength) {
        BYTE nFlags = Next<BYTE>();
        const std::size_t nRuns = nFlags & 8 ? Next<WORD>() : 0, nPhonetic = nFlags & 4 ? Next<DWORD>() : 0;
        std::wstring text;
        while (text.size() < nLength) {
            if (m_starts.contains(m_nPosition)) nFlags = Next<BYTE>();
            text += static_cast<wchar_t>(nFlags & 1 ? Next<WORD>() : Next<BYTE>());
        }
        Skip(4 * nRuns + nPhonetic);
        return text;
    }

    // An integer of 30 bits or the upper 30 bits of a double, either of them perhaps times 100.
    double NextRk() {
        const DWORD nBits = Next<DWORD>();
        const double number =
            nBits & 2 ? static_cast<int>(nBits) >> 2 : std::bit_cast<double>((nBits & ~3ull) << 32);
        return nBits & 1 ? number / 100 : number;
    }

  private:
    const WORD m_nType;
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

// Type of a number under a format such as "yyyy\-mm\-dd", "0.00%" or "#,##0.00\ [$€-40C]".
VARTYPE TypeOf(const std::wstring& format) {
    // "[$-" opens a language; a currency sign may stand in quotation marks.
    static const std::wregex kCurrency(L"[€£¥]|\\$(?!-)");
    static const std::wregex kNoDate(LR"("[^"]*"|\[[A-Za-z]{2,}\]|\[\$[^\]]*\]|[\\_*].)");
    if (std::regex_search(format, kCurrency)) return VT_CY;
    const std::wstring letters = std::regex_replace(format, kNoDate, L"");
    return letters.find_first_of(L"ymdhsYMDHS") != std::wstring::npos ? VT_DATE : VT_R8;
}

// Calls with each record of the part at an offset, but not of parts within it such as charts.
template <class Handler>
void ForEachRecord(const Bytes& stream, std::size_t nOffset, Handler&& handler) {
    int nDepth = 0;
    do {
        Record record(stream, nOffset);
        if (record.Type() == kBeginOf && ++nDepth == 1 && record.Next<WORD>() != 0x600)
            throw std::runtime_error("no BIFF8");
        if (record.Type() == kEndOf) --nDepth;
        if (nDepth == 1) handler(record);
    } while (nDepth > 0);
}

// What stands before the sheets.
class Globals {
  public:
    explicit Globals(const Bytes& stream);
    std::size_t SheetOffset() const { return m_sheets.at(m_nActive); }
    // The value of the next cell in a record of the sheet; a formula's text follows in a record of its own.
    _variant_t Value(Record& record) const;

  private:
    _variant_t Number(unsigned nCellFormat, double number) const;

    unsigned m_nActive = 0;
    std::vector<std::size_t> m_sheets;
    std::vector<std::wstring> m_texts;
    std::vector<unsigned> m_numberFormats;  // by cell format
    // By number format; at first of those built into Excel that are no plain numbers.
    std::map<unsigned, VARTYPE> m_types;
};

Globals::Globals(const Bytes& stream) {
    for (const unsigned n : {5, 6, 7, 8, 42, 44}) m_types[n] = VT_CY;
    for (const unsigned n : {14, 15, 16, 17, 18, 19, 20, 21, 22, 45, 46, 47}) m_types[n] = VT_DATE;
    ForEachRecord(stream, 0, [this](Record& record) {
        if (record.Type() == kEncrypted) throw std::runtime_error("encrypted");
        if (record.Type() == kSheet) m_sheets.push_back(record.Next<DWORD>());
        if (record.Type() == kWindow) {
            record.Skip(10);
            m_nActive = record.Next<WORD>();
        } else if (record.Type() == kCellFormat) {
            record.Skip(2);
            m_numberFormats.push_back(record.Next<WORD>());
        } else if (record.Type() == kNumberFormat) {
            const unsigned nFormat = record.Next<WORD>();
            m_types[nFormat] = TypeOf(record.NextText(record.Next<WORD>()));
        } else if (record.Type() == kTexts) {
            for (record.Skip(8); record.Has(1);) m_texts.push_back(record.NextText(record.Next<WORD>()));
        }
    });
}

_variant_t Globals::Number(unsigned nCellFormat, double number) const {
    _variant_t value(number);
    const auto type = m_types.find(m_numberFormats.at(nCellFormat));
    if (type != m_types.end()) value.ChangeType(type->second);
    return value;
}

_variant_t BoolOrError(unsigned nValue, bool bError) {
    return bError ? _variant_t(MAKE_SCODE(1, FACILITY_CONTROL, 2000 + nValue), VT_ERROR)
                  : _variant_t(nValue != 0);
}

_variant_t Globals::Value(Record& record) const {
    const unsigned nCellFormat = record.Next<WORD>();
    if (record.Type() == kSharedText) return m_texts.at(record.Next<DWORD>()).c_str();
    if (record.Type() == kNumbers || record.Type() == kRkNumber) return Number(nCellFormat, record.NextRk());
    if (record.Type() == kBoolOrError) {
        const unsigned nValue = record.Next<BYTE>();
        return BoolOrError(nValue, record.Next<BYTE>() != 0);
    }
    // A formula's result that is no number has ones above, its kind in the first byte and its value in the
    // third.
    const ULONGLONG nBits = record.Next<ULONGLONG>();
    if (record.Type() == kNumber || nBits >> 48 != 0xFFFF)
        return Number(nCellFormat, std::bit_cast<double>(nBits));
    const unsigned nKind = nBits & 0xFF;
    return nKind == 1 || nKind == 2 ? BoolOrError(nBits >> 16 & 0xFF, nKind == 2) : _variant_t(L"");
}

}  // namespace

XlsCells ReadActiveSheet(const std::wstring& path) {
    const Bytes stream = ReadStream(path);
    const Globals globals(stream);
    XlsCells cells;
    _variant_t* pLast = nullptr;
    ForEachRecord(stream, globals.SheetOffset(), [&](Record& record) {
        static const std::set<WORD> kCells = {kFormula,  kNumber,     kNumbers,
                                              kRkNumber, kSharedText, kBoolOrError};
        if (record.Type() == kFormulaText && pLast) *pLast = record.NextText(record.Next<WORD>()).c_str();
        if (!kCells.contains(record.Type())) return;
        const unsigned nRow = record.Next<WORD>(), nColumn = record.Next<WORD>();
        pLast = &(cells[{nRow, nColumn}] = globals.Value(record));
        // Further numbers of the row, and then its last column.
        for (unsigned i = 1; record.Type() == kNumbers && record.Has(6); ++i)
            cells[{nRow, nColumn + i}] = globals.Value(record);
    });
    return cells;
}
