#include "NumberFormats.h"

#include "CellNumber.h"
#include "Limits.h"
#include "Unicode.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>

namespace {

template <std::size_t N>
bool IsIn(std::uint32_t nFormat, const std::pair<unsigned, unsigned> (&ranges)[N]) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [=](const auto& range) { return nFormat >= range.first && nFormat <= range.second; });
}

// The codes of built-in currencies differ between countries.
bool IsBuiltInCurrency(std::uint32_t nFormat) {
    return IsIn(nFormat, {{5, 8}, {42, 42}, {44, 44}});
}

// Also those of East Asian and Thai versions.
bool IsBuiltInDate(std::uint32_t nFormat) {
    return IsIn(nFormat, {{14, 22}, {27, 36}, {45, 47}, {50, 58}, {71, 81}});
}

// Of Unicode's class "currency sign".
bool IsCurrencySign(char32_t ch) {
    return IsIn(
        ch, {{0x24, 0x24},      {0xA2, 0xA5},     {0x58F, 0x58F},   {0x60B, 0x60B},     {0x7FE, 0x7FF},
             {0x9F2, 0x9F3},    {0x9FB, 0x9FB},   {0xAF1, 0xAF1},   {0xBF9, 0xBF9},     {0xE3F, 0xE3F},
             {0x17DB, 0x17DB},  {0x20A0, 0x20CF}, {0xA838, 0xA838}, {0xFDFC, 0xFDFC},   {0xFE69, 0xFE69},
             {0xFF04, 0xFF04},  {0xFFE0, 0xFFE1}, {0xFFE5, 0xFFE6}, {0x11FDD, 0x11FE0}, {0x1E2FF, 0x1E2FF},
             {0x1ECB0, 0x1ECB0}});
}

// The code with its ASCII letters in lower case.
std::u32string ReadCode(std::string_view utf8) {
    std::u32string code;
    for (std::size_t nAt = 0; nAt < utf8.size();) {
        if (code.size() == kMaxFormatCharacters) throw std::runtime_error("too long a format");
        const char32_t ch = DecodeUtf8(utf8, nAt);
        code += ch >= U'A' && ch <= U'Z' ? ch | 0x20 : ch;
    }
    return code;
}

// "_€" is a gap as wide as the sign, "*€" fills the cell with it. "[$-409]" is a language, "[$CHF-807]" a
// currency.
bool HasCurrency(std::u32string_view code) {
    for (std::size_t nAt = 0; nAt < code.size(); ++nAt) {
        const char32_t before = nAt > 0 ? code[nAt - 1] : U'\0';
        const bool bLanguage = before == U'[' && code.substr(nAt).starts_with(U"$-");
        if (IsCurrencySign(code[nAt]) && before != U'_' && before != U'*' && !bLanguage) return true;
    }
    return false;
}

// Brackets hold an elapsed time, "[hh]", or else a language, a colour or a condition.
bool IsElapsedTime(std::u32string_view inBrackets) {
    return !inBrackets.empty() && inBrackets.find_first_not_of(U"hms") == inBrackets.npos;
}

// Length of the word at the code's start that has letters of dates and is none; 0 when there is none. East
// Asian versions write "G/标准" and the like for "General".
std::size_t PlainWordLength(std::u32string_view code) {
    for (const std::u32string_view word : {U"general", U"g/", U"e+", U"e-"})
        if (code.starts_with(word)) return word.size();
    return 0;
}

bool HasDate(std::u32string_view code) {
    for (std::size_t nAt = 0; nAt < code.size(); ++nAt) {
        const char32_t ch = code[nAt];
        if (ch == U'\\' || ch == U'_' || ch == U'*') {
            ++nAt;  // the next character is shown, left out or repeated
        } else if (ch == U'"') {
            nAt = std::min(code.find(U'"', nAt + 1), code.size());
        } else if (ch == U'[') {
            const std::size_t nEnd = std::min(code.find(U']', nAt), code.size());
            if (IsElapsedTime(code.substr(nAt + 1, nEnd - nAt - 1))) return true;
            nAt = nEnd;
        } else if (const std::size_t nLength = PlainWordLength(code.substr(nAt))) {
            nAt += nLength - 1;
        } else if (std::u32string_view(U"abdeghmsy").find(ch) != std::u32string_view::npos) {
            return true;
        }
    }
    return false;
}

// What a workbook's styles say, by their numbers.
struct Styles {
    std::map<std::uint32_t, bool> isPlainFormat;  // of the formats that the workbook defines
    std::vector<std::uint32_t> formats;           // of the styles of cells
    std::size_t nOwnFormats = 0;
};

// Reads the element that was just entered in the list.
void ReadEntry(const XmlScanner& xml, std::string_view list, std::string_view name, Styles& styles) {
    const std::string_view id = xml.Attribute("numFmtId");
    if (list == "numFmts" && name == "numFmt") {
        const std::u32string code = ReadCode(xml.Attribute("formatCode"));
        ++styles.nOwnFormats;
        styles.isPlainFormat[ParseIndex(id)] = !HasCurrency(code) && !HasDate(code);
    } else if (list == "cellXfs" && name == "xf") {
        styles.formats.push_back(id.empty() ? 0 : ParseIndex(id));
    }
    if (styles.formats.size() > kMaxListEntries || styles.nOwnFormats > kMaxListEntries)
        throw std::runtime_error("too many formats");
}

bool IsPlainFormat(std::uint32_t nFormat, const std::map<std::uint32_t, bool>& isPlainFormat) {
    if (IsBuiltInCurrency(nFormat)) return false;
    const auto own = isPlainFormat.find(nFormat);
    return own == isPlainFormat.end() ? !IsBuiltInDate(nFormat) : own->second;
}

}  // namespace

NumberFormats::NumberFormats(XmlScanner xml) {
    Styles styles;
    xml.EnterRoot("styleSheet");
    xml.ForEachChild([&](std::string_view child) {
        const std::string list(child);  // the view ends with the first entry
        xml.ForEachChild([&](std::string_view name) { ReadEntry(xml, list, name, styles); });
    });
    xml.Finish();
    for (const std::uint32_t nFormat : styles.formats)
        m_isPlain.push_back(IsPlainFormat(nFormat, styles.isPlainFormat));
}
