#include "XmlScanner.h"

#include "Unicode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>
#include <utility>

namespace {

constexpr std::size_t kMaxToken = 1 << 24, kMaxDepth = 256;

[[noreturn]] void Fail(const char* pszReason) {
    throw std::runtime_error(pszReason);
}

// What a character is to the loops over text and tags. The zero that ends the buffer ends all of them.
enum : unsigned char { kBlank = 1, kOther = 2, kSpecial = 4, kEndsText = 8, kEndsName = 16 };

constexpr std::array<unsigned char, 256> kClasses = [] {
    std::array<unsigned char, 256> classes;
    classes.fill(kOther);
    for (const char ch : {' ', '\n', '\t', '\r'})
        classes[static_cast<unsigned char>(ch)] = kBlank | kEndsName;
    for (const char ch : {'>', '/', '='}) classes[static_cast<unsigned char>(ch)] |= kEndsName;
    classes['\r'] |= kSpecial;
    classes['&'] |= kSpecial;
    classes['<'] = classes['\0'] = kEndsText | kEndsName;
    return classes;
}();

unsigned ClassOf(char ch) {
    return kClasses[static_cast<unsigned char>(ch)];
}

template <class Char>
void SkipBlanks(Char*& p) {
    while (ClassOf(*p) & kBlank) ++p;
}

// What stands between "&" and ";".
char32_t Referenced(std::string_view name) {
    constexpr std::pair<std::string_view, char> kNames[] = {
        {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [known, ch] : kNames)
        if (name == known) return static_cast<char32_t>(ch);
    const bool bHex = name.starts_with("#x");
    const char *pFirst = name.data() + (bHex ? 2 : 1), *pEnd = name.data() + name.size();
    std::uint32_t nCode = 0;
    if (!name.starts_with('#') || std::from_chars(pFirst, pEnd, nCode, bHex ? 16 : 10).ptr != pEnd ||
        nCode == 0 || nCode > 0x10FFFF || (nCode >= 0xD800 && nCode < 0xE000))
        Fail("an unknown entity");
    return nCode;
}

// Appends the text with its references resolved and its line ends as "\n".
void AppendResolved(std::string_view raw, std::string& text) {
    for (std::size_t nAt = 0; nAt < raw.size();) {
        const std::size_t nSpecial = std::min(raw.find_first_of("&\r", nAt), raw.size());
        text.append(raw, nAt, nSpecial - nAt);
        if (nSpecial == raw.size()) return;
        nAt = nSpecial + 1;
        if (raw[nSpecial] == '\r') {
            if (!raw.substr(nAt).starts_with('\n')) text += '\n';
            continue;
        }
        const std::size_t nEnd = raw.find(';', nAt);
        if (nEnd == raw.npos) Fail("an entity without end");
        AppendUtf8(text, Referenced(raw.substr(nAt, nEnd - nAt)));
        nAt = nEnd + 1;
    }
}

}  // namespace

void XmlScanner::EnterRoot(std::string_view name) {
    do Next();
    while (m_token == Token::Text);
    if (m_name != name) Fail("another root element");
}

void XmlScanner::Finish() {
    while (m_token != Token::Nothing) Next();
}

std::string_view XmlScanner::Attribute(std::string_view name) const {
    for (const auto& [given, value] : m_attributes)  // the first characters tell most of them apart
        if (given.size() == name.size() && given[0] == name[0] && given == name) return value;
    return {};
}

std::string_view XmlScanner::ReadText(std::string& pieces) {
    pieces.clear();
    for (const std::size_t nDepth = m_nDepth; Next(), m_nDepth >= nDepth;) {
        if (m_token != Token::Text || m_nDepth != nDepth) continue;
        const bool bWhole = std::string_view(Begin(), End()).starts_with("</");
        if (bWhole && pieces.empty() && !m_bReferences) return m_text;
        if (m_bReferences)
            AppendResolved(m_text, pieces);
        else
            pieces += m_text;
    }
    return pieces;
}

void XmlScanner::Next() {
    m_token = m_bEmptyElement ? CloseElement() : ReadMarkup();
}

// Up to the next token that is no comment and no processing instruction.
XmlScanner::Token XmlScanner::ReadMarkup() {
    for (;;) {
        if (m_nPos == m_buffer.size() && !Refill()) {
            if (!m_bRootSeen || m_nDepth > 0) Fail("the end of a part is missing");
            return Token::Nothing;
        }
        if (*Begin() != '<') return ReadCharacters();
        if (m_nPos + 1 == m_buffer.size()) Refill();
        switch (Begin()[1]) {
            case '/':
                return ReadEnd();
            case '?':
                m_nPos += Find("?>", 2) + 2;
                break;
            case '!':
                if (StartsWith("<![CDATA[")) return ReadLiteral();
                if (!StartsWith("<!--")) Fail("a document type");
                m_nPos += Find("-->", 4) + 3;
                break;
            default:
                return ReadStart();
        }
    }
}

XmlScanner::Token XmlScanner::ReadStart() {
    while (!ParseTag(Begin()))
        if (!Refill()) Fail("a tag without end");
    if (std::exchange(m_bSpecialValues, false)) ResolveValues();
    if (m_nDepth == 0) {
        if (m_bRootSeen) Fail("a second root element");
        m_bRootSeen = true;
        m_prefix = m_name.substr(0, m_name.find(':') + 1);
    }
    if (m_nDepth == kMaxDepth) Fail("too many elements in one another");
    if (m_nDepth == m_openNames.size()) m_openNames.emplace_back();
    std::string& openName = m_openNames[m_nDepth++];
    if (openName != m_name) openName = m_name;  // most are as the one before
    m_name = WithoutPrefix(m_name);
    return Token::Start;
}

std::string_view XmlScanner::WithoutPrefix(std::string_view name) const {
    return name.starts_with(m_prefix) ? name.substr(m_prefix.size()) : name;
}

// False when the buffer ends within the tag at p.
bool XmlScanner::ParseTag(char* p) {
    char* const pName = ++p;
    while (!(ClassOf(*p) & kEndsName)) ++p;
    m_name = {pName, p};
    m_attributes.clear();
    for (SkipBlanks(p); *p != '>' && *p != '/'; SkipBlanks(p))
        if (p == End() || !ParseAttribute(p)) return false;
    m_bEmptyElement = *p == '/';
    if (m_bEmptyElement && ++p == End()) return false;
    if (m_name.empty() || *p != '>') Fail("a tag with something else in it");
    m_nPos = static_cast<std::size_t>(p + 1 - m_buffer.data());
    return true;
}

// Moves behind the attribute; false when the buffer ends within it.
bool XmlScanner::ParseAttribute(char*& p) {
    const char* pName = p;
    for (; !(ClassOf(*p) & kEndsName); ++p)
        if (*p == ':') pName = p + 1;
    const std::string_view name(pName, p);
    SkipBlanks(p);
    if (p == End()) return false;
    if (name.empty() || *p++ != '=') Fail("an attribute without value");
    SkipBlanks(p);
    if (p == End()) return false;
    const char quote = *p++;
    if (quote != '"' && quote != '\'') Fail("an attribute without quotation marks");
    char* const pValue = p;
    unsigned nClasses = 0;
    for (; *p != quote && !(ClassOf(*p) & kEndsText); ++p) nClasses |= ClassOf(*p);
    if (p == End()) return false;
    if (*p != quote) Fail("a tag within an attribute");
    m_attributes.push_back({name, {pValue, p++}});
    m_bSpecialValues |= (nClasses & kSpecial) != 0;
    return true;
}

XmlScanner::Token XmlScanner::ReadEnd() {
    if (m_nDepth == 0) Fail("an end tag without start");
    const char* pName = m_openNames[m_nDepth - 1].c_str();
    for (std::size_t nAt = 2;;) {
        const char* p = Begin() + nAt;
        while (*p && *p == *pName) ++p, ++pName;
        if (!*pName) SkipBlanks(p);
        nAt = static_cast<std::size_t>(p - Begin());
        if (*p == '>' && !*pName) {
            m_nPos += nAt + 1;
            return CloseElement();
        }
        if (p != End() || !Refill()) Fail("an end tag of another element");
    }
}

XmlScanner::Token XmlScanner::CloseElement() {
    m_bEmptyElement = false;
    --m_nDepth;
    return Token::End;
}

XmlScanner::Token XmlScanner::ReadCharacters() {
    std::size_t nLength = 0;
    unsigned nClasses = 0;
    do {
        const char* p = Begin() + nLength;
        for (; !(ClassOf(*p) & kEndsText); ++p) nClasses |= ClassOf(*p);
        nLength = static_cast<std::size_t>(p - Begin());
    } while (Begin() + nLength == End() && Refill());
    const bool bZero = Begin() + nLength != End() && Begin()[nLength] == '\0';
    if (bZero || (m_nDepth == 0 && nClasses & kOther)) Fail("text outside of the root element");
    m_text = {Begin(), nLength};
    m_bReferences = (nClasses & kSpecial) != 0;
    m_nPos += nLength;
    return Token::Text;
}

XmlScanner::Token XmlScanner::ReadLiteral() {
    constexpr std::size_t kMark = 9;
    const std::size_t nEnd = Find("]]>", kMark);
    if (m_nDepth == 0) Fail("text outside of the root element");
    m_text = {Begin() + kMark, nEnd - kMark};
    m_bReferences = false;
    m_nPos += nEnd + 3;
    return Token::Text;
}

// In their places, since no reference is shorter than its character.
void XmlScanner::ResolveValues() {
    for (auto& [name, value] : m_attributes) {
        std::string text;
        AppendResolved(value, text);
        value = {std::copy(text.begin(), text.end(), const_cast<char*>(value.data())) - text.size(),
                 text.size()};
    }
}

bool XmlScanner::StartsWith(std::string_view mark) {
    while (m_buffer.size() - m_nPos < mark.size() && Refill()) {
    }
    return std::string_view(Begin(), End()).starts_with(mark);
}

// Where the mark stands, seen from the token's start.
std::size_t XmlScanner::Find(std::string_view mark, std::size_t nFrom) {
    for (;;) {
        const std::string_view rest(Begin(), End());
        const std::size_t nAt = rest.find(mark, nFrom);
        if (nAt != rest.npos) return nAt;
        nFrom = std::max(nFrom, rest.size() - std::min(rest.size(), mark.size() - 1));
        if (!Refill()) Fail("the end of a part is missing");
    }
}

// Reads more behind what is left of the buffer, which moves; false at the part's end.
bool XmlScanner::Refill() {
    m_buffer.erase(0, m_nPos);
    m_nPos = 0;
    const std::size_t nOld = m_buffer.size();
    if (nOld > kMaxToken) Fail("a tag or text too long");
    // At least as much again, since a tag is parsed from its start each time.
    do {
        std::string_view bytes = m_source();
        if (bytes.empty() && !m_rest.empty()) Fail("no UTF-16");
        if (bytes.empty()) break;
        if (m_encoding == Encoding::Unknown) bytes.remove_prefix(DetectEncoding(bytes));
        if (m_encoding == Encoding::Utf8)
            m_buffer += bytes;
        else
            m_rest += bytes, AppendUtf16();
    } while (m_buffer.size() < 2 * nOld);
    return m_buffer.size() > nOld;
}

// By the byte order mark, or by how "<" is written. Returns the length of the mark.
std::size_t XmlScanner::DetectEncoding(std::string_view start) {
    const auto is = [&](std::string_view mark) { return start.starts_with(mark); };
    using namespace std::string_view_literals;
    m_encoding = is("\xFF\xFE") || is("<\0"sv)   ? Encoding::Utf16Little
                 : is("\xFE\xFF") || is("\0<"sv) ? Encoding::Utf16Big
                                                 : Encoding::Utf8;
    return is("\xEF\xBB\xBF") ? 3 : is("\xFF\xFE") || is("\xFE\xFF") ? 2 : 0;
}

// Moves m_rest to the buffer, but for half a character at its end.
void XmlScanner::AppendUtf16() {
    const std::string bytes = std::exchange(m_rest, {});
    const bool bBig = m_encoding == Encoding::Utf16Big;
    const auto unit = [&](std::size_t nAt) {
        const auto byte = [&](std::size_t n) { return static_cast<unsigned char>(bytes[nAt + n]); };
        return static_cast<char32_t>(byte(bBig ? 0 : 1) << 8 | byte(bBig ? 1 : 0));
    };
    for (std::size_t nAt = 0; nAt < bytes.size();) {
        const std::size_t nLeft = bytes.size() - nAt;
        const bool bPair = nLeft >= 2 && unit(nAt) >= 0xD800 && unit(nAt) < 0xE000;
        if (nLeft < (bPair ? 4 : 2)) {
            m_rest = bytes.substr(nAt);
            return;
        }
        const char32_t ch =
            bPair ? 0x10000 + ((unit(nAt) & 0x7FF) << 10 | (unit(nAt + 2) & 0x3FF)) : unit(nAt);
        if (bPair && (unit(nAt) >= 0xDC00 || unit(nAt + 2) >> 10 != 0x37)) Fail("no UTF-16");
        AppendUtf8(m_buffer, ch);
        nAt += bPair ? 4 : 2;
    }
}
