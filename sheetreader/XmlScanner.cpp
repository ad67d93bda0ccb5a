#include "XmlScanner.h"

#include "Limits.h"
#include "XmlReferences.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace {

[[noreturn]] void Fail(const char* pszReason) {
    throw std::runtime_error(pszReason);
}

// What a character means to the loops below. The zero at the buffer's end ends all of them.
enum : unsigned char { kBlank = 1, kOther = 2, kToResolve = 4, kEndsText = 8, kEndsName = 16 };

constexpr std::array<unsigned char, 256> kClasses = [] {
    std::array<unsigned char, 256> classes;
    classes.fill(kOther);
    for (const char ch : {' ', '\n', '\t', '\r'})
        classes[static_cast<unsigned char>(ch)] = kBlank | kEndsName;
    for (const char ch : {'>', '/', '='}) classes[static_cast<unsigned char>(ch)] |= kEndsName;
    for (const char ch : {'\r', '&'}) classes[static_cast<unsigned char>(ch)] |= kToResolve;
    for (const char ch : {'<', '\0'}) classes[static_cast<unsigned char>(ch)] = kEndsText | kEndsName;
    return classes;
}();

unsigned ClassOf(char ch) {
    return kClasses[static_cast<unsigned char>(ch)];
}

template <class Char>
void SkipBlanks(Char*& p) {
    while (ClassOf(*p) & kBlank) ++p;
}

// Moves behind the name.
std::string_view ParseName(char*& p) {
    const char* const pName = p;
    while (!(ClassOf(*p) & kEndsName)) ++p;
    return {pName, p};
}

// Moves to the end of the value, or of the buffer. Returns the classes of the value's characters.
unsigned SkipValue(char*& p, char quote) {
    unsigned nClasses = 0;
    for (; *p != quote && !(ClassOf(*p) & kEndsText); ++p) nClasses |= ClassOf(*p);
    return nClasses;
}

}  // namespace

// The steps that run for each tag are inline: their calls would take a tenth of the scanner's time.

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

std::string_view XmlScanner::PrefixedAttribute(std::string_view name) const {
    for (const auto& [given, value] : m_attributes) {
        const std::size_t nColon = given.find(':');
        if (nColon != given.npos && given.substr(nColon + 1) == name) return value;
    }
    return {};
}

std::string_view XmlScanner::ReadText(std::string& pieces) {
    const std::size_t nOwnDepth = m_nDepth;
    pieces.clear();
    while (NextWithin(nOwnDepth)) {
        if (m_token != Token::Text || m_nDepth != nOwnDepth) continue;
        if (pieces.empty() && IsWholeText()) return m_text;
        if (m_bRawText)
            AppendResolved(pieces, m_text);
        else
            pieces += m_text;
        if (pieces.size() > kMaxTokenBytes) Fail("too long a text");
    }
    return pieces;
}

// Whether the text can be given as it stands in the buffer.
inline bool XmlScanner::IsWholeText() {
    return !m_bRawText && std::string_view(m_buffer.Begin(), m_buffer.End()).starts_with("</");
}

void XmlScanner::Next() {
    m_token = m_bEmptyElement ? CloseElement() : ReadToken();
}

// Passes over comments and processing instructions.
XmlScanner::Token XmlScanner::ReadToken() {
    while (!AtPartEnd()) {
        if (*m_buffer.Begin() != '<') return ReadCharacters();
        if (m_buffer.Begin() + 1 == m_buffer.End()) m_buffer.Refill();
        switch (m_buffer.Begin()[1]) {
            case '/':
                return ReadEndTag();
            case '?':
                m_buffer.ConsumeTo(m_buffer.Find("?>", 2) + 2);
                break;
            case '!':
                if (m_buffer.StartsWith("<![CDATA[")) return ReadCdata();
                SkipComment();
                break;
            default:
                return ReadStartTag();
        }
    }
    if (!m_bRootSeen || m_nDepth > 0) Fail("the end of a part is missing");
    return Token::Nothing;
}

inline bool XmlScanner::AtPartEnd() {
    return m_buffer.Begin() == m_buffer.End() && !m_buffer.Refill();
}

void XmlScanner::SkipComment() {
    if (!m_buffer.StartsWith("<!--")) Fail("a document type");
    m_buffer.ConsumeTo(m_buffer.Find("-->", 4) + 3);
}

XmlScanner::Token XmlScanner::ReadStartTag() {
    while (!ParseStartTag())
        if (!m_buffer.Refill()) Fail("a tag without end");
    if (std::exchange(m_bRawValues, false)) ResolveValues();
    if (m_nDepth == 0) NoteRoot();
    OpenElement();
    return Token::Start;
}

// False when the buffer ends within the tag. So does the next one.
inline bool XmlScanner::ParseStartTag() {
    char* p = m_buffer.Begin() + 1;
    m_name = ParseName(p);
    m_attributes.clear();
    for (SkipBlanks(p); *p != '>' && *p != '/'; SkipBlanks(p))
        if (p == m_buffer.End() || !ParseAttribute(p)) return false;
    m_bEmptyElement = *p == '/';
    if (m_bEmptyElement && ++p == m_buffer.End()) return false;
    if (m_name.empty() || *p != '>') Fail("a tag with something else in it");
    m_buffer.ConsumeTo(p + 1);
    return true;
}

bool XmlScanner::ParseAttribute(char*& p) {
    const std::string_view name = ParseName(p);
    SkipBlanks(p);
    if (p == m_buffer.End()) return false;
    if (name.empty() || *p++ != '=') Fail("an attribute without value");
    SkipBlanks(p);
    if (p == m_buffer.End()) return false;
    const char quote = *p++;
    if (quote != '"' && quote != '\'') Fail("an attribute without quotation marks");
    const char* const pValue = p;
    const unsigned nClasses = SkipValue(p, quote);
    if (p == m_buffer.End()) return false;
    if (*p != quote) Fail("a tag within an attribute");
    if (m_attributes.size() == kMaxAttributes) Fail("too many attributes");
    m_attributes.push_back({name, {pValue, p++}});
    m_bRawValues |= (nClasses & kToResolve) != 0;
    return true;
}

// In their places in the buffer: no character is longer than its reference.
void XmlScanner::ResolveValues() {
    for (auto& [name, value] : m_attributes) {
        std::string text;
        AppendResolved(text, value);
        char* const pValue = const_cast<char*>(value.data());
        std::copy(text.begin(), text.end(), pValue);
        value = {pValue, text.size()};
    }
}

void XmlScanner::NoteRoot() {
    if (m_bRootSeen) Fail("a second root element");
    m_bRootSeen = true;
    m_rootPrefix = m_name.substr(0, m_name.find(':') + 1);
}

inline void XmlScanner::OpenElement() {
    if (m_nDepth == kMaxElementDepth) Fail("too many elements in one another");
    if (m_name.size() > kMaxNameBytes) Fail("too long a name");
    if (m_nDepth == m_openNames.size()) m_openNames.emplace_back();
    std::string& openName = m_openNames[m_nDepth++];
    if (openName != m_name) openName = m_name;  // most are the same as the one before
    if (m_name.starts_with(m_rootPrefix)) m_name.remove_prefix(m_rootPrefix.size());
}

XmlScanner::Token XmlScanner::ReadEndTag() {
    if (m_nDepth == 0) Fail("an end tag without start");
    while (!ParseEndTag())
        if (!m_buffer.Refill()) Fail("a tag without end");
    return CloseElement();
}

// False when the buffer ends within the tag.
inline bool XmlScanner::ParseEndTag() {
    const char *p = m_buffer.Begin() + 2, *pOpenName = m_openNames[m_nDepth - 1].c_str();
    while (*p && *p == *pOpenName) ++p, ++pOpenName;
    if (!*pOpenName) SkipBlanks(p);
    if (p == m_buffer.End()) return false;
    if (*pOpenName || *p != '>') Fail("an end tag of another element");
    m_buffer.ConsumeTo(p + 1);
    return true;
}

inline XmlScanner::Token XmlScanner::CloseElement() {
    m_bEmptyElement = false;
    --m_nDepth;
    return Token::End;
}

XmlScanner::Token XmlScanner::ReadCharacters() {
    std::size_t nLength = 0;
    unsigned nClasses = 0;
    do {
        const char* p = m_buffer.Begin() + nLength;
        for (; !(ClassOf(*p) & kEndsText); ++p) nClasses |= ClassOf(*p);
        nLength = static_cast<std::size_t>(p - m_buffer.Begin());
    } while (m_buffer.Begin() + nLength == m_buffer.End() && m_buffer.Refill());
    const char* const pEnd = m_buffer.Begin() + nLength;
    if (pEnd != m_buffer.End() && *pEnd == '\0') Fail("a zero in the text");
    if (m_nDepth == 0 && nClasses & kOther) Fail("text outside of the root element");
    m_text = {m_buffer.Begin(), nLength};
    m_bRawText = (nClasses & kToResolve) != 0;
    m_buffer.ConsumeTo(pEnd);
    return Token::Text;
}

XmlScanner::Token XmlScanner::ReadCdata() {
    constexpr std::string_view kStart = "<![CDATA[", kEnd = "]]>";
    const char* const pEnd = m_buffer.Find(kEnd, kStart.size());
    if (m_nDepth == 0) Fail("text outside of the root element");
    m_text = {m_buffer.Begin() + kStart.size(), pEnd};
    m_bRawText = false;
    m_buffer.ConsumeTo(pEnd + kEnd.size());
    return Token::Text;
}
