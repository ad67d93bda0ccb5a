#include "XmlReferences.h"

#include "Unicode.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <utility>

namespace {

// The number of "#65" or "#x41"; 0 when it is none.
std::uint32_t ParseCharacterNumber(std::string_view name) {
    const bool bHex = name.starts_with("#x");
    const char *pFirst = name.data() + (bHex ? 2 : 1), *pEnd = name.data() + name.size();
    std::uint32_t nCode = 0;
    const bool bWhole =
        name.starts_with('#') && std::from_chars(pFirst, pEnd, nCode, bHex ? 16 : 10).ptr == pEnd;
    return bWhole ? nCode : 0;
}

bool IsCharacter(std::uint32_t nCode) {
    return nCode > 0 && nCode <= 0x10FFFF && (nCode < 0xD800 || nCode > 0xDFFF);
}

// The character that stands for the name between "&" and ";".
char32_t Referenced(std::string_view name) {
    constexpr std::pair<std::string_view, char> kNames[] = {
        {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [known, ch] : kNames)
        if (name == known) return static_cast<char32_t>(ch);
    const std::uint32_t nCode = ParseCharacterNumber(name);
    if (!IsCharacter(nCode)) throw std::runtime_error("an unknown entity");
    return nCode;
}

// Appends the character of the reference at the start of the text; returns the length of the reference.
std::size_t AppendReferenced(std::string& text, std::string_view raw) {
    const std::size_t nEnd = raw.find(';');
    if (nEnd == raw.npos) throw std::runtime_error("an entity without end");
    AppendUtf8(text, Referenced(raw.substr(1, nEnd - 1)));
    return nEnd + 1;
}

}  // namespace

void AppendResolved(std::string& text, std::string_view raw) {
    while (!raw.empty()) {
        const std::size_t nPlain = std::min(raw.find_first_of("&\r"), raw.size());
        text.append(raw, 0, nPlain);
        raw.remove_prefix(nPlain);
        if (raw.starts_with('&')) {
            raw.remove_prefix(AppendReferenced(text, raw));
        } else if (raw.starts_with('\r')) {
            raw.remove_prefix(raw.starts_with("\r\n") ? 2 : 1);
            text += '\n';
        }
    }
}
