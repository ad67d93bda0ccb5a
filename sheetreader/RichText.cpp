#include "RichText.h"

#include "Limits.h"
#include "Unicode.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <stdexcept>

namespace {

constexpr std::size_t kEscapeLength = 7;

// The character of the escape _x000D_ that the text starts with; none when it starts with something else.
std::optional<char32_t> ParseEscape(std::string_view text) {
    if (text.size() < kEscapeLength || text[kEscapeLength - 1] != '_') return std::nullopt;
    const char *const pDigits = text.data() + 2, *const pEnd = text.data() + kEscapeLength - 1;
    std::uint32_t nCode = 0;
    if (std::from_chars(pDigits, pEnd, nCode, 16).ptr != pEnd) return std::nullopt;
    return nCode;
}

// An underscore in front of what looks like an escape is itself one, _x005F_. So what comes out is not
// looked at again.
void AppendUnescaped(std::string& text, std::string_view escaped) {
    for (std::size_t nAt = 0; (nAt = escaped.find("_x", nAt)) != escaped.npos;) {
        if (const auto ch = ParseEscape(escaped.substr(nAt))) {
            AppendUtf8(text.append(escaped, 0, nAt), *ch);
            escaped.remove_prefix(nAt + kEscapeLength);
            nAt = 0;
        } else {
            ++nAt;
        }
    }
    text += escaped;
}

}  // namespace

void ReadPlainText(XmlScanner& xml, std::string& text) {
    const bool bPreserve = xml.Attribute("xml:space") == "preserve";
    std::string pieces;
    const std::string_view escaped = xml.ReadText(pieces);
    AppendUnescaped(text, bPreserve ? escaped : Trimmed(escaped));
    if (text.size() > kMaxTokenBytes) throw std::length_error("too long a text");
}

void ReadRichText(XmlScanner& xml, std::string& text) {
    xml.ForEachChild([&](std::string_view name) {
        if (name == "t") return ReadPlainText(xml, text);
        if (name == "r") ReadRichText(xml, text);
    });
}
