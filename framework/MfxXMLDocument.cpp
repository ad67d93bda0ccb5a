#include "MfxXMLDocument.h"

#include "ElementXml.h"
#include "MfxXMLInternal.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <iterator>
#include <utility>

using mfx_xml::IsDetachedHolder;
using mfx_xml::IsXmlName;
using mfx_xml::kDetachedTag;

namespace {

MfxXMLDocument* g_pCurrentDocument = nullptr;

// Everything is kept that can be, and nothing is changed: no line ends turned, no blanks dropped from texts.
constexpr unsigned kParseOptions = pugi::parse_comments | pugi::parse_pi | pugi::parse_declaration |
                                   pugi::parse_doctype | pugi::parse_cdata | pugi::parse_escapes |
                                   pugi::parse_ws_pcdata_single | pugi::parse_fragment;

constexpr wchar_t kIndent[] = L"  ";

const MfxXmlParseResult kSuccess{.bOk = true};

// Byte-order marks
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF", kLittleEndianMark = "\xFF\xFE",
                           kBigEndianMark = "\xFE\xFF";

bool IsUtf8(std::string_view bytes) {
    if (std::all_of(bytes.begin(), bytes.end(), [](char ch) { return static_cast<signed char>(ch) >= 0; }))
        return true;
    return bytes.size() <= INT_MAX && MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(),
                                                          static_cast<int>(bytes.size()), nullptr, 0) > 0;
}

std::string Utf16ToUtf8(std::string_view bytes, bool bBigEndian) {
    std::wstring text(bytes.size() / 2, L'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<wchar_t>(bBigEndian ? first << 8 | second : second << 8 | first);
    }
    std::string utf8(text.size() * 3, '\0');
    utf8.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), utf8.data(),
                            static_cast<int>(utf8.size()), nullptr, nullptr)));
    return utf8;
}

// The text without its byte-order mark, as UTF-8 wherever it is valid.
std::string ToPlainUtf8(std::string_view bytes) {
    if (bytes.starts_with(kLittleEndianMark) || bytes.starts_with(kBigEndianMark))
        return Utf16ToUtf8(bytes.substr(2), bytes.starts_with(kBigEndianMark));
    return std::string(bytes.substr(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0));
}

// Line of the first bytes that are not UTF-8, from 1; 0 when all are.
int FindUndecodableLine(const std::string& utf8) {
    if (IsUtf8(utf8)) return 0;
    int nLine = 1;
    for (std::size_t start = 0; start < utf8.size(); ++nLine) {
        const std::size_t end = std::min(utf8.find('\n', start), utf8.size() - 1) + 1;
        if (!IsUtf8(std::string_view(utf8).substr(start, end - start))) break;
        start = end;
    }
    return nLine;
}

// Whether a text in UTF-16 ends in the middle of a unit.
bool IsTruncatedUtf16(std::string_view bytes) {
    return (bytes.starts_with(kLittleEndianMark) || bytes.starts_with(kBigEndianMark)) &&
           bytes.size() % 2 != 0;
}

// "<?xml ... ?>" at the start of a text; empty when it has none.
std::string_view DeclarationOf(std::string_view text) {
    const std::size_t nEnd = text.find("?>");
    return text.substr(0, text.starts_with("<?xml") && nEnd != text.npos ? nEnd + 2 : 0);
}

// The encoding that the text's declaration names; null when it names none.
pugi::xml_attribute FindEncoding(const pugi::xml_document& document) {
    const pugi::xml_node declaration = document.first_child();
    if (declaration.type() != pugi::node_declaration) return {};
    return declaration.attribute(L"encoding");
}

// Encodings that a declaration may name; pure ASCII is UTF-8 too.
bool IsReadableEncoding(const CString& strEncoding) {
    return strEncoding.CompareNoCase(L"UTF-8") == 0 || strEncoding.CompareNoCase(L"UTF-16") == 0 ||
           strEncoding.CompareNoCase(L"US-ASCII") == 0;
}

bool HasTooManyAttributes(const pugi::xml_node& element, int nMaxAttributes) {
    return std::distance(element.attributes_begin(), element.attributes_end()) > nMaxAttributes;
}

// The first element nested deeper than allowed or with too many attributes, or a null node.
pugi::xml_node FindTooLarge(const pugi::xml_node& document, int nMaxDepth, int nMaxAttributes) {
    pugi::xml_node large;
    mfx_xml::ForEachElement(document, [&](const pugi::xml_node& element, int nDepth) {
        if (nDepth >= nMaxDepth || HasTooManyAttributes(element, nMaxAttributes)) large = element;
        return !large;
    });
    return large;
}

// Whether a reference, between "&" and ";", would not survive: to an entity that has to be declared (it would
// be saved as plain text), or to no character.
bool IsForeignReference(const std::string& name) {
    if (name.starts_with('#')) {
        const bool bHex = name.starts_with("#x");
        const unsigned long nCode = std::strtoul(name.c_str() + (bHex ? 2 : 1), nullptr, bHex ? 16 : 10);
        return nCode == 0 || nCode > 0x10FFFF || (nCode >= 0xD800 && nCode < 0xE000);
    }
    constexpr std::string_view kKnown[] = {"amp", "lt", "gt", "quot", "apos"};
    return IsXmlName(std::wstring(name.begin(), name.end()).c_str()) &&
           std::find(std::begin(kKnown), std::end(kKnown), name) == std::end(kKnown);
}

// The first such reference outside comments, instructions and literal text; npos when there is none.
std::size_t FindForeignReference(std::string_view text) {
    constexpr std::string_view kLiterals[][2] = {
        {"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}, {"<!DOCTYPE", ">"}};
    if (text.find('&') == text.npos) return text.npos;
    for (std::size_t at = 0; (at = text.find_first_of("&<", at)) != text.npos; ++at) {
        const std::string_view rest = text.substr(at);
        const std::size_t nEnd = rest[0] == '&' ? rest.find_first_of("; &<\"'", 1) : 0;
        if (nEnd != 0 && nEnd != rest.npos && rest[nEnd] == ';' &&
            IsForeignReference(std::string(rest.substr(1, nEnd - 1))))
            return at;
        for (const auto& [opening, closing] : kLiterals)
            if (rest.starts_with(opening)) at = std::min(text.find(closing, at), text.size());
    }
    return text.npos;
}

bool HasControlCharacter(const wchar_t* pszText) {
    for (; *pszText; ++pszText)
        if (*pszText < L' ' && *pszText != L'\t' && *pszText != L'\n' && *pszText != L'\r') return true;
    return false;
}

bool HasControlCharacterInText(const pugi::xml_node& element) {
    return element.find_child([](const pugi::xml_node& child) {
        return child.type() != pugi::node_element && HasControlCharacter(child.value());
    });
}

struct Utf8Writer : pugi::xml_writer {
    std::string text;
    void write(const void* pData, std::size_t nSize) override {
        text.append(static_cast<const char*>(pData), nSize);
    }
};

}  // namespace

MfxXMLDocument::MfxXMLDocument() : m_pDocument(std::make_unique<pugi::xml_document>()) {}

MfxXMLDocument::~MfxXMLDocument() = default;

void MfxXMLDocument::Clear() {
    m_pDocument->reset();
    m_source.clear();
    m_lineStarts.clear();
}

MfxXMLNode* MfxXMLDocument::CreateNode(const CString& strTag) {
    if (!IsXmlName(strTag)) return nullptr;
    pugi::xml_node holder = m_pDocument->last_child();
    if (!IsDetachedHolder(holder)) holder = m_pDocument->append_child(kDetachedTag);
    return MfxXMLNode::Wrap(holder.append_child(strTag).internal_object());
}

MfxXmlParseResult MfxXMLDocument::Parse(std::string_view bytes) {
    Clear();
    if (IsTruncatedUtf16(bytes)) return Fail(1, 1, L"the text ends in the middle of a UTF-16 character");
    m_source = ToPlainUtf8(bytes);
    using Step = MfxXmlParseResult (MfxXMLDocument::*)();
    constexpr Step kSteps[] = {&MfxXMLDocument::CheckEncoding, &MfxXMLDocument::BuildTree,
                               &MfxXMLDocument::CheckReferences, &MfxXMLDocument::CheckOutermostElement,
                               &MfxXMLDocument::CheckSize};
    for (const Step step : kSteps)
        if (MfxXmlParseResult result = (this->*step)(); !result.bOk) return result;
    return kSuccess;
}

// The declaration is read first: without it bytes of other encodings look like bad UTF-8.
MfxXmlParseResult MfxXMLDocument::CheckEncoding() {
    pugi::xml_document declaration;
    const std::string_view text = DeclarationOf(m_source);
    declaration.load_buffer(text.data(), text.size(), kParseOptions, pugi::encoding_utf8);
    const pugi::xml_attribute encoding = FindEncoding(declaration);
    if (encoding && !IsReadableEncoding(encoding.value()))
        return Fail(
            1, 1, L"the encoding \"" + CString(encoding.value()) + L"\" is not read, only UTF-8 and UTF-16");
    if (const int line = FindUndecodableLine(m_source)) return Fail(line, 1, L"the text is not valid UTF-8");
    // pugixml takes a text up to its first NUL for the whole of it; the rest would be lost without a word.
    if (const std::size_t nul = m_source.find('\0'); nul != m_source.npos)
        return FailAtByte(nul, L"the text holds a NUL character (UTF-16 needs a byte-order mark)");
    return kSuccess;
}

MfxXmlParseResult MfxXMLDocument::BuildTree() {
    const pugi::xml_parse_result parsed =
        m_pDocument->load_buffer(m_source.data(), m_source.size(), kParseOptions, pugi::encoding_utf8);
    if (!parsed) return Fail(parsed.offset, CString(parsed.description()));
    FindEncoding(*m_pDocument).set_value(L"UTF-8");  // what ToUtf8 writes; of a null attribute nothing
    return kSuccess;
}

// Entities would be saved as plain text.
MfxXmlParseResult MfxXMLDocument::CheckReferences() {
    const pugi::xml_node type = m_pDocument->find_child([](const pugi::xml_node& node) {
        return node.type() == pugi::node_doctype && wcschr(node.value(), L'[');
    });
    if (type)
        return Fail(type.offset_debug(),
                    L"the document type declares entities or attributes, which are not read");
    if (const std::size_t at = FindForeignReference(m_source); at != m_source.npos)
        return FailAtByte(at,
                          L"a reference stands for an entity that has to be declared, or for no character");
    return kSuccess;
}

MfxXmlParseResult MfxXMLDocument::CheckOutermostElement() {
    const pugi::xml_node root = m_pDocument->document_element();
    if (!root) return Fail(1, 1, L"there is no element");
    for (const pugi::xml_node child : m_pDocument->children()) {
        const bool isText = child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata;
        if (isText && !CString(child.value()).Trim().IsEmpty())
            return Fail(child.offset_debug(), L"there is text outside the outermost element");
        if (child.type() == pugi::node_element && child != root)
            return Fail(child.offset_debug(), L"there is more than one outermost element");
    }
    return kSuccess;
}

MfxXmlParseResult MfxXMLDocument::CheckSize() {
    const pugi::xml_node large = FindTooLarge(*m_pDocument, kMaxDepth, kMaxAttributes);
    if (!large) return kSuccess;
    return Fail(large.offset_debug(), HasTooManyAttributes(large, kMaxAttributes)
                                          ? L"an element has too many attributes"
                                          : L"elements are nested too deep");
}

MfxXmlParseResult MfxXMLDocument::Fail(std::ptrdiff_t nOffset, const CString& strReason) {
    if (nOffset < 0) return Fail(0, 0, strReason);
    const int nLine = LineAt(nOffset);
    return Fail(nLine, static_cast<int>(nOffset - m_lineStarts[static_cast<std::size_t>(nLine - 1)]) + 1,
                strReason);
}

MfxXmlParseResult MfxXMLDocument::FailAtByte(std::size_t nByte, const CString& strReason) {
    const std::string before = m_source.substr(0, nByte);
    const auto nLine = static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1;
    return Fail(nLine, static_cast<int>(nByte - (before.rfind('\n') + 1)) + 1, strReason);
}

MfxXmlParseResult MfxXMLDocument::Fail(int nLine, int nColumn, const CString& strReason) {
    Clear();
    return {false, nLine, nColumn, strReason};
}

// The library counts in UTF-16 units, of which a character of four bytes makes two.
void MfxXMLDocument::IndexLines() const {
    std::ptrdiff_t nOffset = 0;
    m_lineStarts.push_back(0);
    for (const char ch : m_source) {
        const auto value = static_cast<unsigned char>(ch);
        const bool bContinues = (value & 0xC0) == 0x80;
        if (!bContinues) nOffset += value >= 0xF0 ? 2 : 1;
        if (ch == '\n') m_lineStarts.push_back(nOffset);
    }
}

int MfxXMLDocument::LineAt(std::ptrdiff_t nOffset) const {
    if (m_lineStarts.empty()) IndexLines();
    const auto next = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), nOffset);
    return static_cast<int>(next - m_lineStarts.begin());
}

std::string MfxXMLDocument::ToUtf8() const {
    Utf8Writer writer;
    if (m_pDocument->first_child().type() != pugi::node_declaration)
        writer.text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    for (const pugi::xml_node child : m_pDocument->children())
        if (!IsDetachedHolder(child)) child.print(writer, kIndent, pugi::format_indent, pugi::encoding_utf8);
    if (!writer.text.ends_with('\n')) writer.text += '\n';
    return writer.text;
}

std::string ElementToUtf8(const MfxXMLNode& element) {
    Utf8Writer writer;
    mfx_xml::Access::Element(element).print(writer, kIndent, pugi::format_indent, pugi::encoding_utf8);
    return writer.text;
}

MfxXMLNode* MfxXMLDocument::GetRootNode() const {
    const pugi::xml_node root = m_pDocument->document_element();
    return IsDetachedHolder(root) ? nullptr : MfxXMLNode::Wrap(root.internal_object());
}

MfxXMLNode* MfxXMLDocument::CreateRootNode(const CString& strTag) {
    if (!IsXmlName(strTag)) return nullptr;
    Clear();
    return MfxXMLNode::Wrap(m_pDocument->append_child(strTag).internal_object());
}

int MfxXMLDocument::GetLine(const MfxXMLNode& node) const {
    const std::ptrdiff_t nOffset = pugi::xml_node(node.m_pElement).offset_debug();
    return nOffset >= 0 ? LineAt(nOffset) : 0;
}

std::vector<MfxXmlFlaw> MfxXMLDocument::FindFlaws() const {
    std::vector<MfxXmlFlaw> flaws;
    std::vector<std::wstring_view> names;
    mfx_xml::ForEachElement(*m_pDocument, [&](const pugi::xml_node& element, int) {
        const auto add = [&](MfxXmlFlaw::Kind kind, const wchar_t* attribute) {
            flaws.push_back({kind, MfxXMLNode(element.internal_object()), CString(attribute)});
        };
        names.clear();
        for (const pugi::xml_attribute attribute : element.attributes()) {
            const std::wstring_view name = attribute.name();
            if (std::find(names.begin(), names.end(), name) != names.end())
                add(MfxXmlFlaw::RepeatedAttribute, name.data());
            if (HasControlCharacter(attribute.value())) add(MfxXmlFlaw::ControlCharacter, name.data());
            names.push_back(name);
        }
        if (HasControlCharacterInText(element)) add(MfxXmlFlaw::ControlCharacter, L"");
        return true;
    });
    return flaws;
}

MfxXMLDocument* MfxXMLDocument::GetCurrent() {
    return g_pCurrentDocument;
}

CurrentDocumentScope::CurrentDocumentScope(MfxXMLDocument* pDocument)
    : m_pPrevious(std::exchange(g_pCurrentDocument, pDocument)) {}

CurrentDocumentScope::~CurrentDocumentScope() {
    g_pCurrentDocument = m_pPrevious;
}
