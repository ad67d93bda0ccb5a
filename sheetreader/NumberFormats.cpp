#include "NumberFormats.h"

#include "CellNumber.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace {

template <std::size_t N>
bool IsIn(std::uint32_t nFormat, const std::pair<unsigned, unsigned> (&ranges)[N]) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [=](const auto& range) { return nFormat >= range.first && nFormat <= range.second; });
}

// Of the formats that are built in. Their codes differ between countries.
bool IsBuiltInCurrency(std::uint32_t nFormat) {
    return IsIn(nFormat, {{5, 8}, {42, 42}, {44, 44}});
}

// Also those of East Asian and Thai versions.
bool IsBuiltInDate(std::uint32_t nFormat) {
    return IsIn(nFormat, {{14, 22}, {27, 36}, {45, 47}, {50, 58}, {71, 81}});
}

// Whether a sign is shown: not "_€", a gap as wide, nor "*€", which fills the cell. "[$-" opens a language;
// other brackets with a dollar sign have a currency, "[$CHF-807]".
bool HasCurrency(std::string_view code) {
    for (const std::string_view sign :
         {"$", "€", "£", "¥", "₩", "₤", "₨", "₪", "₫", "₱", "₴", "₹", "₺", "₽", "฿", "￡", "￥", "￦"})
        for (std::size_t nAt = 0; (nAt = code.find(sign, nAt)) != code.npos; nAt += sign.size()) {
            const char before = nAt > 0 ? code[nAt - 1] : '\0';
            const bool bLanguage = sign == "$" && code.substr(nAt + 1).starts_with('-');
            if (before != '_' && before != '*' && !bLanguage) return true;
        }
    return false;
}

bool HasDate(std::string_view code) {
    for (std::size_t nAt = 0; nAt < code.size(); ++nAt) {
        const char ch = code[nAt];
        if (ch == '\\' || ch == '_' || ch == '*') {
            ++nAt;  // the next character is shown, left out or repeated
        } else if (ch == '"') {
            nAt = std::min(code.find('"', nAt + 1), code.size());
        } else if (ch == '[') {
            // An elapsed time [hh], or else a language, colour or condition.
            const std::size_t nEnd = std::min(code.find(']', nAt), code.size());
            if (nEnd > nAt + 1 && code.find_first_not_of("hmsHMS", nAt + 1) == nEnd) return true;
            nAt = nEnd;
        } else if (std::string_view("ymdhsYMDHS").find(ch) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

bool IsPlainCode(std::string_view code) {
    return !HasCurrency(code) && !HasDate(code);
}

}  // namespace

NumberFormats::NumberFormats(XmlScanner styles) {
    std::map<std::uint32_t, bool> ownFormats;
    std::vector<std::uint32_t> cellFormats;
    styles.EnterRoot("styleSheet");
    styles.ForEachChild([&](std::string_view list) {
        const bool bOwn = list == "numFmts", bCells = list == "cellXfs";
        styles.ForEachChild([&](std::string_view name) {
            const std::string_view id = styles.Attribute("numFmtId");
            if (bOwn && name == "numFmt")
                ownFormats[ParseIndex(id)] = IsPlainCode(styles.Attribute("formatCode"));
            else if (bCells && name == "xf")
                cellFormats.push_back(id.empty() ? 0 : ParseIndex(id));
            if (cellFormats.size() == kTooManyEntries || ownFormats.size() == kTooManyEntries)
                throw std::runtime_error("too many formats");
        });
    });
    styles.Finish();
    for (const std::uint32_t nFormat : cellFormats) {
        const auto own = ownFormats.find(nFormat);
        m_plain.push_back(!IsBuiltInCurrency(nFormat) &&
                          (own == ownFormats.end() ? !IsBuiltInDate(nFormat) : own->second));
    }
}
