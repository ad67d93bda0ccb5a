#include "NumberFormats.h"

#include "CellNumber.h"
#include "Limits.h"

#include <algorithm>
#include <map>
#include <stdexcept>

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

// Whether the sign at this place shows a currency. "_€" is a gap as wide as the sign, "*€" fills the cell
// with it. "[$-409]" is a language, "[$CHF-807]" a currency.
bool ShowsCurrency(std::string_view code, std::string_view sign, std::size_t nAt) {
    const char before = nAt > 0 ? code[nAt - 1] : '\0';
    const bool bLanguage = sign == "$" && code.substr(nAt + 1).starts_with('-');
    return before != '_' && before != '*' && !bLanguage;
}

bool HasCurrency(std::string_view code) {
    for (const std::string_view sign :
         {"$", "€", "£", "¥", "₩", "₤", "₨", "₪", "₫", "₱", "₴", "₹", "₺", "₽", "฿", "￡", "￥", "￦"})
        for (std::size_t nAt = 0; (nAt = code.find(sign, nAt)) != code.npos; nAt += sign.size())
            if (ShowsCurrency(code, sign, nAt)) return true;
    return false;
}

// Brackets hold an elapsed time, "[hh]", or else a language, a colour or a condition.
bool IsElapsedTime(std::string_view inBrackets) {
    return !inBrackets.empty() && inBrackets.find_first_not_of("hmsHMS") == inBrackets.npos;
}

bool HasDate(std::string_view code) {
    for (std::size_t nAt = 0; nAt < code.size(); ++nAt) {
        const char ch = code[nAt];
        if (ch == '\\' || ch == '_' || ch == '*') {
            ++nAt;  // the next character is shown, left out or repeated
        } else if (ch == '"') {
            nAt = std::min(code.find('"', nAt + 1), code.size());
        } else if (ch == '[') {
            const std::size_t nEnd = std::min(code.find(']', nAt), code.size());
            if (IsElapsedTime(code.substr(nAt + 1, nEnd - nAt - 1))) return true;
            nAt = nEnd;
        } else if (std::string_view("ymdhsYMDHS").find(ch) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

// What a workbook's styles say, by their numbers.
struct Styles {
    std::map<std::uint32_t, bool> isPlainFormat;  // of the formats that the workbook defines
    std::vector<std::uint32_t> formats;           // of the styles of cells
};

// Reads the element that was just entered in the list.
void ReadEntry(const XmlScanner& xml, std::string_view list, std::string_view name, Styles& styles) {
    const std::string_view id = xml.Attribute("numFmtId");
    if (list == "numFmts" && name == "numFmt") {
        const std::string_view code = xml.Attribute("formatCode");
        styles.isPlainFormat[ParseIndex(id)] = !HasCurrency(code) && !HasDate(code);
    } else if (list == "cellXfs" && name == "xf") {
        styles.formats.push_back(id.empty() ? 0 : ParseIndex(id));
    }
    if (styles.formats.size() > kMaxListEntries || styles.isPlainFormat.size() > kMaxListEntries)
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
