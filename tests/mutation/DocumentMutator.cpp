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
    "\x01 \x1b[2J \xc2\x85 \xff \xed\xa0\x80 \xf0\xa0\xae\xb7 %s%n%1 < > & \" &a; &b; &c; &#0; &#xD800; "
    "&#9999999999; <![CDATA[x]]> ]]> <!-- <? <Rule/> <Value>7</Value> xmlns:a=\"b\" " +
    std::string(70000, 'x'));
// A text, one that contains itself, and a file.
const std::string kEntities =
    R"(<!DOCTYPE a [<!ENTITY a "6"><!ENTITY b "&b;&b;"><!ENTITY c SYSTEM "file:///etc/passwd">]>)";

std::string Repeated(const std::string& part, std::size_t nTimes) {
    constexpr std::size_t kMaxSize = 1 << 18;
    std::string repeated;
    for (; nTimes > 0 && repeated.size() < kMaxSize; --nTimes) repeated += part;
    return repeated;
}

// An element inside itself, again and again.
std::string Nested(const std::string& element, std::size_t nDepth) {
    return Repeated(element.substr(0, element.find('>') + 1), nDepth) + element +
           Repeated(element.substr(std::min(element.rfind('<'), element.size())), nDepth);
}

// From the first place up to the second; nothing when one of them was not found.
std::pair<std::size_t, std::size_t> Between(std::size_t nFirst, std::size_t nEnd) {
    if (nFirst >= nEnd || nEnd == std::string::npos) return {};
    return {nFirst, nEnd - nFirst};
}

// The first element behind a place, with all in it.
std::pair<std::size_t, std::size_t> FindElement(const std::string& text, std::size_t nFrom) {
    const std::size_t nAt = text.find('<', nFrom), nTagEnd = text.find('>', nAt);
    if (nTagEnd == std::string::npos || text[nTagEnd - 1] == '/') return Between(nAt, nTagEnd + 1);
    const std::string close = "</" + text.substr(nAt + 1, text.find_first_of(" >", nAt) - nAt - 1) + ">";
    const std::size_t nClose = text.find(close, nTagEnd);
    return Between(nAt, nClose == std::string::npos ? nClose : nClose + close.size());
}

}  // namespace

std::string DocumentMutator::MakeDocument() {
    constexpr Kind kKinds[] = {Number, Number, Attribute, Element, Element, Bytes};
    std::string text = OneOf(m_documents);
    for (std::size_t n = Some(3); n > 0; --n) {
        const Kind kind = OneOf(kKinds);
        const auto [nAt, nLength] = FindPart(text, kind);
        text.replace(nAt, nLength, Replacement(text.substr(nAt, nLength), kind));
    }
    const std::size_t nChange = Below(16);
    if (nChange == 0) text.insert(text.find("?>") == text.npos ? 0 : text.find("?>") + 2, kEntities);
    if (nChange == 1) text.resize(Below(text.size()));
    return nChange == 2 ? ToUtf16(text, Below(2) != 0, true) : text;
}

// The first part of that kind behind a random place.
std::pair<std::size_t, std::size_t> DocumentMutator::FindPart(const std::string& text, Kind kind) {
    const std::size_t nFrom = Below(text.size());
    if (kind == Bytes) return {nFrom, std::min(text.size() - nFrom, Some(12))};
    if (kind == Element) return FindElement(text, nFrom);
    if (kind == Number) {
        const std::size_t nAt = text.find_first_of("0123456789", nFrom);
        return Between(nAt, text.find_first_not_of("0123456789.-", nAt));
    }
    const std::size_t nQuote = text.find_first_of("\"'", text.find('=', nFrom));
    if (nQuote == std::string::npos) return {};
    const std::size_t nEnd = text.find(text[nQuote], nQuote + 1);
    return Between(text.rfind(' ', nQuote), nEnd == std::string::npos ? nEnd : nEnd + 1);
}

std::string DocumentMutator::Replacement(const std::string& part, Kind kind) {
    const std::size_t nChange = Below(kind == Bytes ? 6 : 4);
    if (kind == Number && nChange < 2) return OneOf(kNumbers);
    if (nChange == 0) return "";
    if (nChange == 1) return Nested(part, Some(10));
    if (nChange == 2) return Repeated(part, Some(11));
    if (nChange == 3) {
        const std::string& other = OneOf(m_documents);
        const auto [nAt, nLength] = FindPart(other, kind);
        return other.substr(nAt, nLength);
    }
    std::string changed = part;
    if (nChange == 4 && !part.empty()) changed[Below(part.size())] ^= static_cast<char>(1 << Below(8));
    return nChange == 4 ? changed : OneOf(kTexts) + part;
}
