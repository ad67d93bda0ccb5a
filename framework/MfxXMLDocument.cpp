#include "MfxXMLDocument.h"

#include "MfxXMLInternal.h"

#include <algorithm>
#include <climits>
#include <utility>

using mfx_xml::IsDetachedHolder;
using mfx_xml::IsXmlName;
using mfx_xml::kDetachedTag;

namespace {

MfxXMLDocument* g_pCurrentDocument = nullptr;

// Everything is kept that can be, and nothing is changed: no line ends turned, no blanks dropped from texts.
constexpr unsigned kParseOptions = pugi::parse_comments | pugi::parse_pi | pugi::parse_declaration |
                                   pugi::parse_doctype | pugi::parse_cdata | pugi::parse_escapes |
                                   pugi::parse_ws_pcdata_single;

constexpr wchar_t kIndent[] = L"  ";

bool DecodeUtf8(std::string_view bytes, std::wstring& text) {
    if (bytes.empty()) return true;
    const int nBytes = static_cast<int>(bytes.size());
    const int nChars = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), nBytes, nullptr, 0);
    if (nChars == 0) return false;
    const std::size_t nOld = text.size();
    text.resize(nOld + static_cast<std::size_t>(nChars));
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), nBytes, &text[nOld], nChars);
    return true;
}

std::wstring DecodeUtf16(std::string_view bytes, bool bBigEndian) {
    std::wstring text(bytes.size() / 2, L'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<wchar_t>(bBigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

// Line of the first bytes that are not UTF-8, from 1.
int FirstUndecodableLine(std::string_view bytes) {
    int nLine = 1;
    for (std::size_t start = 0; start < bytes.size(); ++nLine) {
        const std::size_t end = std::min(bytes.find('\n', start), bytes.size() - 1) + 1;
        std::wstring ignored;
        if (!DecodeUtf8(bytes.substr(start, end - start), ignored)) break;
        start = end;
    }
    return nLine;
}

bool Decode(std::string_view bytes, std::wstring& text) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        text = DecodeUtf16(bytes.substr(2), bytes[0] == '\xFE');
        return bytes.size() % 2 == 0;
    }
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    return bytes.size() <= INT_MAX && DecodeUtf8(bytes, text);
}

// Encodings that a declaration may name; pure ASCII is UTF-8 too.
bool IsReadableEncoding(const CString& strEncoding) {
    return strEncoding.CompareNoCase(L"UTF-8") == 0 || strEncoding.CompareNoCase(L"UTF-16") == 0 ||
           strEncoding.CompareNoCase(L"US-ASCII") == 0;
}

// The first element nested deeper than allowed, or a null node. Not recursive: the depth is the problem.
pugi::xml_node FindTooDeep(const pugi::xml_node& document, int nMaxDepth) {
    int nDepth = 0;
    for (pugi::xml_node node = document.first_child(); node;) {
        if (nDepth >= nMaxDepth) return node;
        if (node.first_child()) {
            node = node.first_child();
            ++nDepth;
            continue;
        }
        while (node != document && !node.next_sibling()) {
            node = node.parent();
            --nDepth;
        }
        if (node == document) break;
        node = node.next_sibling();
    }
    return {};
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
    std::wstring text;
    if (!Decode(bytes, text)) {
        MfxXmlParseResult result;
        result.nLine = FirstUndecodableLine(bytes);
        result.nColumn = 1;
        result.strReason = L"the text is not valid UTF-8";
        return result;
    }
    m_lineStarts.push_back(0);
    for (std::size_t i = text.find(L'\n'); i != std::wstring::npos; i = text.find(L'\n', i + 1))
        m_lineStarts.push_back(static_cast<std::ptrdiff_t>(i + 1));
    // pugixml takes a text up to its first NUL for the whole of it; the rest would be lost without a word.
    if (const std::size_t nNul = text.find(L'\0'); nNul != std::wstring::npos)
        return Fail(static_cast<std::ptrdiff_t>(nNul), L"the text holds a NUL character");

    const pugi::xml_parse_result parsed = m_pDocument->load_buffer(text.data(), text.size() * sizeof(wchar_t),
                                                                   kParseOptions, pugi::encoding_wchar);
    if (!parsed) return Fail(parsed.offset, CString(parsed.description()));
    if (pugi::xml_attribute encoding = m_pDocument->first_child().attribute(L"encoding")) {
        if (!IsReadableEncoding(encoding.value()))
            return Fail(0, CString(L"the encoding is not UTF-8 or UTF-16"));
        encoding.set_value(L"UTF-8");  // what ToUtf8 writes
    }
    if (const pugi::xml_node deep = FindTooDeep(*m_pDocument, kMaxDepth))
        return Fail(deep.offset_debug(), L"elements are nested too deep");
    for (pugi::xml_node extra = m_pDocument->document_element().next_sibling(); extra;
         extra = extra.next_sibling())
        if (extra.type() == pugi::node_element)
            return Fail(extra.offset_debug(), L"there is more than one outermost element");

    MfxXmlParseResult result;
    result.bOk = true;
    return result;
}

MfxXmlParseResult MfxXMLDocument::Fail(std::ptrdiff_t nOffset, const CString& strReason) {
    MfxXmlParseResult result;
    result.strReason = strReason;
    if (nOffset >= 0) {
        result.nLine = LineAt(nOffset);
        result.nColumn =
            static_cast<int>(nOffset - m_lineStarts[static_cast<std::size_t>(result.nLine - 1)]) + 1;
    }
    Clear();
    return result;
}

int MfxXMLDocument::LineAt(std::ptrdiff_t nOffset) const {
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

MfxXMLDocument* MfxXMLDocument::GetCurrent() {
    return g_pCurrentDocument;
}

CurrentDocumentScope::CurrentDocumentScope(MfxXMLDocument* pDocument)
    : m_pPrevious(std::exchange(g_pCurrentDocument, pDocument)) {}

CurrentDocumentScope::~CurrentDocumentScope() {
    g_pCurrentDocument = m_pPrevious;
}
