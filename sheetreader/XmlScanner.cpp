#include "XmlScanner.h"

#include "Unicode.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace {

constexpr std::size_t kChunk = 1 << 16, kMaxToken = 1 << 24, kMaxDepth = 256;

[[noreturn]] void Fail(const char* pszReason) {
    throw std::runtime_error(pszReason);
}

bool IsBlank(char ch) {
    return ch == ' ' || ch == '\n' || ch == '\t' || ch == '\r';
}

bool EndsName(char ch) {
    return IsBlank(ch) || ch == '>' || ch == '/' || ch == '=';
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
    if (raw.find('&') == raw.npos && raw.find('\r') == raw.npos) {
        text += raw;
        return;
    }
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

std::string XmlScanner::Attribute(std::string_view name) const {
    std::string text;
    for (const auto& [given, value] : m_attributes) {
        if (!given.ends_with(name) ||
            (given.size() > name.size() && given[given.size() - name.size() - 1] != ':'))
            continue;
        AppendResolved(value, text);
        break;
    }
    return text;
}

void XmlScanner::ReadText(std::string& text) {
    for (const std::size_t nDepth = m_lengths.size(); Next(), m_lengths.size() >= nDepth;) {
        if (m_token != Token::Text || m_lengths.size() != nDepth) continue;
        if (m_bReferences)
            AppendResolved(m_text, text);
        else
            text += m_text;
    }
}

void XmlScanner::Next() {
    m_token = m_bEmptyElement ? CloseElement() : ReadMarkup();
}

// Up to the next token that is no comment and no processing instruction.
XmlScanner::Token XmlScanner::ReadMarkup() {
    for (;;) {
        if (m_nPos == m_buffer.size() && !Refill()) {
            if (!m_bRootSeen || !m_lengths.empty()) Fail("the end of a part is missing");
            return Token::Nothing;
        }
        if (*Begin() != '<') return ReadCharacters();
        while (End() - Begin() < 9 && Refill()) {
        }
        const std::string_view start(Begin(), std::min<std::size_t>(m_buffer.size() - m_nPos, 9));
        if (start.starts_with("</")) return ReadEnd();
        if (start.starts_with("<![CDATA[")) return ReadLiteral();
        if (start.starts_with("<!--"))
            m_nPos += Find("-->", 4) + 3;
        else if (start.starts_with("<?"))
            m_nPos += Find("?>", 2) + 2;
        else if (start.starts_with("<!"))
            Fail("a document type");
        else
            return ReadStart();
    }
}

XmlScanner::Token XmlScanner::ReadStart() {
    while (!ParseTag(Begin()))
        if (!Refill()) Fail("a tag without end");
    if (m_lengths.empty()) {
        if (m_bRootSeen) Fail("a second root element");
        m_bRootSeen = true;
        m_prefix = m_name.substr(0, m_name.find(':') + 1);
    }
    if (m_lengths.size() == kMaxDepth) Fail("too many elements in one another");
    m_openNames += m_name;
    m_lengths.push_back(m_name.size());
    m_name = WithoutPrefix(m_name);
    return Token::Start;
}

std::string_view XmlScanner::WithoutPrefix(std::string_view name) const {
    return name.starts_with(m_prefix) ? name.substr(m_prefix.size()) : name;
}

// False when the buffer ends within the tag at p.
bool XmlScanner::ParseTag(char* p) {
    const char* const pEnd = End();
    char* const pName = ++p;
    p = std::find_if(p, End(), EndsName);
    m_name = {pName, p};
    if (m_name.empty()) Fail("a tag without name");
    m_attributes.clear();
    for (;;) {
        while (p != pEnd && IsBlank(*p)) ++p;
        if (p == pEnd) return false;
        m_bEmptyElement = *p == '/';
        if (m_bEmptyElement && ++p == pEnd) return false;
        if (*p == '>') break;
        if (m_bEmptyElement) Fail("a slash within a tag");
        if (!ParseAttribute(p)) return false;
    }
    m_nPos = static_cast<std::size_t>(p + 1 - m_buffer.data());
    return true;
}

// Moves behind the attribute; false when the buffer ends within it.
bool XmlScanner::ParseAttribute(char*& p) {
    const auto toVisible = [&] {
        while (p != End() && IsBlank(*p)) ++p;
        return p != End();
    };
    char* const pName = p;
    p = std::find_if(p, End(), EndsName);
    const std::string_view name(pName, p);
    if (!toVisible()) return false;
    if (name.empty() || *p++ != '=') Fail("an attribute without value");
    if (!toVisible()) return false;
    const char quote = *p++;
    if (quote != '"' && quote != '\'') Fail("an attribute without quotation marks");
    char* const pValue = p;
    p = std::find(p, End(), quote);
    if (p == End()) return false;
    m_attributes.push_back({name, {pValue, p++}});
    return true;
}

XmlScanner::Token XmlScanner::ReadEnd() {
    const std::size_t nEnd = Find(">", 2);
    std::string_view name(Begin() + 2, nEnd - 2);
    while (!name.empty() && IsBlank(name.back())) name.remove_suffix(1);
    m_nPos += nEnd + 1;
    if (m_lengths.empty() || name.size() != m_lengths.back() || !m_openNames.ends_with(name))
        Fail("an end tag of another element");
    return CloseElement();
}

XmlScanner::Token XmlScanner::CloseElement() {
    m_bEmptyElement = false;
    m_openNames.resize(m_openNames.size() - m_lengths.back());
    m_lengths.pop_back();
    return Token::End;
}

XmlScanner::Token XmlScanner::ReadCharacters() {
    const bool bOutside = m_lengths.empty();
    std::size_t nEnd = 0;
    // Outside of the root element nothing but blanks may stand, and nothing has to follow them.
    if (bOutside)
        while (nEnd < m_buffer.size() - m_nPos && IsBlank(Begin()[nEnd])) ++nEnd;
    else
        nEnd = Find("<", 0);
    if (nEnd == 0) Fail("text outside of the root element");
    m_text = {Begin(), nEnd};
    m_bReferences = true;
    m_nPos += nEnd;
    return Token::Text;
}

XmlScanner::Token XmlScanner::ReadLiteral() {
    constexpr std::size_t kMark = 9;
    const std::size_t nEnd = Find("]]>", kMark);
    if (m_lengths.empty()) Fail("text outside of the root element");
    m_text = {Begin() + kMark, nEnd - kMark};
    m_bReferences = false;
    m_nPos += nEnd + 3;
    return Token::Text;
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
    if (m_buffer.size() > kMaxToken) Fail("a tag or text too long");
    if (m_encoding == Encoding::Unknown) DetectEncoding();
    const bool bWide = m_encoding != Encoding::Utf8;
    std::string& target = bWide ? m_rest : m_buffer;
    const std::size_t nOld = target.size();
    // At least as much again, since a tag is parsed from its start each time.
    target.resize(nOld + std::max(kChunk, nOld));
    const std::size_t nRead = m_source(target.data() + nOld, target.size() - nOld);
    target.resize(nOld + nRead);
    if (bWide && nRead > 0) AppendUtf16(std::exchange(m_rest, {}));
    return nRead > 0;
}

// By the byte order mark, or by how "<" is written.
void XmlScanner::DetectEncoding() {
    std::string start(3, '\0');
    std::size_t nRead = 0;
    for (std::size_t n; nRead < 3 && (n = m_source(start.data() + nRead, 3 - nRead)) > 0;) nRead += n;
    start.resize(nRead);
    const auto is = [&](std::string_view mark) { return start.starts_with(mark); };
    using namespace std::string_view_literals;
    m_encoding = is("\xFF\xFE") || is("<\0"sv)   ? Encoding::Utf16Little
                 : is("\xFE\xFF") || is("\0<"sv) ? Encoding::Utf16Big
                                                 : Encoding::Utf8;
    if (m_encoding != Encoding::Utf8)
        m_rest = start.substr(is("<") || is("\0"sv) ? 0 : 2);
    else if (!is("\xEF\xBB\xBF"))
        m_buffer = start;
}

void XmlScanner::AppendUtf16(const std::string& bytes) {
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
