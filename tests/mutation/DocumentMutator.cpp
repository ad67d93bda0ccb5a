#include "DocumentMutator.h"

#include "support/Utf16.h"

#include <algorithm>
#include <iterator>
#include <sstream>

namespace {

std::vector<std::string> Words(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

const std::vector<std::string> kNumbers = Words(
    ". -1 0 1 2 3 24 29183 1e308 -1.7976931348623157e308 1e309 2.3e-308 1e-400 nan -inf 1,5 1.234,5 0x10 1e "
    "--1 +5 1.2.3 2147483648 -2147483649 99999999999999999999 1000000000.0 \u0663 <!---->7 &#49; "
    "1e9999999999 " +
    std::string(400, '9') + " 0." + std::string(400, '0') + "1");
const std::vector<std::string> kTexts = Words(
    "\x01 \x1b[2J \xc2\x85 \xff \xed\xa0\x80 \xf0\xa0\xae\xb7 %s%n%1 < > & \" &a; &#0; &#xD800; "
    "&#9999999999; <![CDATA[x]]> ]]> <!-- <? <Rule/> <Value>7</Value> xmlns:a=\"b\" " +
    std::string(70000, 'x'));

// A part is known by the characters that it begins with.
const std::string kNumber = "0123456789", kAttribute = " ", kElement = "<", kBytes = "<>= aeinort";

// Of the element that a text begins with; of its tag where it does not end.
std::size_t ElementLength(std::string_view text) {
    const std::size_t nTag = text.find('>') + 1;
    if (nTag < 2 || text[nTag - 2] == '/') return nTag;
    const std::string close = "</" + std::string(text.substr(1, text.find_first_of(" >") - 1)) + ">";
    const std::size_t nClose = text.find(close);
    return nClose == text.npos ? nTag : nClose + close.size();
}

}  // namespace

std::string DocumentMutator::MakeDocument() {
    const std::string* const kKinds[] = {&kNumber, &kNumber, &kAttribute, &kElement, &kElement, &kBytes};
    std::string text = OneOf(m_documents);
    for (std::size_t n = Some(3); n > 0; --n) {
        const std::string& kind = *OneOf(kKinds);
        const std::string_view part = FindPart(text, kind);
        const auto nAt = static_cast<std::size_t>(part.data() - text.data());
        text.replace(nAt, part.size(), Changed(std::string(part), kind));
    }
    const std::size_t nChange = Below(16);
    if (nChange == 0) text.resize(Below(text.size()));
    return nChange == 1 ? ToUtf16(text, Below(2) != 0, true) : text;
}

// The first part of that kind behind a random place; empty at the end of the text.
std::string_view DocumentMutator::FindPart(std::string_view text, const std::string& kind) {
    text.remove_prefix(std::min(text.find_first_of(kind, Below(text.size())), text.size()));
    if (kind == kNumber) return text.substr(0, text.find_first_not_of("0123456789.-"));
    if (kind == kAttribute) return text.substr(0, text.find_first_of(" />", 1));
    return text.substr(0, kind == kElement ? ElementLength(text) : Some(12));
}

std::string DocumentMutator::Changed(const std::string& part, const std::string& kind) {
    constexpr std::size_t kMaxSize = 1 << 18;
    if (kind == kNumber && Below(2) == 0) return OneOf(kNumbers);
    if (kind == kBytes && Below(2) == 0) return OneOf(kTexts) + part;
    std::string changed = part;
    switch (Below(kind == kBytes ? 4 : 3)) {
        case 0:
            return "";
        case 1:
            for (std::size_t n = Some(11); n > 0 && changed.size() < kMaxSize; --n) changed += part;
            return changed;
        case 2:
            return std::string(FindPart(OneOf(m_documents), kind));
        default:
            if (!part.empty()) changed[Below(part.size())] ^= static_cast<char>(1 << Below(8));
            return changed;
    }
}
