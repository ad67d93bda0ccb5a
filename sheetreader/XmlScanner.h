#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// More entries than a workbook's list of sheets, relations or formats has: what reads one throws at this
// many.
inline constexpr std::size_t kTooManyEntries = 1 << 16;

// Walks once through the XML of a workbook's part, which it does not keep: UTF-8 or UTF-16, without document
// type. All members throw std::runtime_error when its tags are not well-formed, when elements are nested
// deeper than 256, or when a tag or text is longer than 32 MB. What a name is made of and what is passed over
// is not checked. Views are valid until the next element or text.
class XmlScanner {
  public:
    // Returns the next bytes, which are valid until the next call: some thousands, fewer only at the end.
    using Source = std::function<std::string_view()>;

    explicit XmlScanner(Source source) : m_source(std::move(source)) {}

    // To the root element, which must have this name; and from there to the part's end.
    void EnterRoot(std::string_view name);
    void Finish();

    // Calls with the name of each child of the open element; the child then is the open one. What the handler
    // leaves of it is passed over. Names have no prefix, unless it is another one than the root's.
    template <class Handler>
    void ForEachChild(Handler&& handler) {
        for (const std::size_t nDepth = m_nDepth; Next(), m_nDepth >= nDepth;)
            if (m_token == Token::Start && m_nDepth == nDepth + 1) handler(m_name);
    }

    // Of the element that was just entered, by its name without prefix; empty when it has none.
    std::string_view Attribute(std::string_view name) const;

    // The open element's own text, as a view of what is scanned or, when it is in several pieces, of these
    // put together. The element may be open afterwards.
    std::string_view ReadText(std::string& pieces);

  private:
    enum class Token { Start, End, Text, Nothing };
    enum class Encoding { Unknown, Utf8, Utf16Little, Utf16Big };
    struct NameAndValue {
        std::string_view name, value;
    };

    void Next();
    Token ReadMarkup();
    Token ReadStart();
    Token ReadEnd();
    Token ReadCharacters();
    Token ReadLiteral();
    Token CloseElement();
    bool ParseTag(char* p);
    bool ParseAttribute(char*& p);
    void ResolveValues();
    bool StartsWith(std::string_view mark);
    std::string_view WithoutPrefix(std::string_view name) const;
    std::size_t Find(std::string_view mark, std::size_t nFrom);
    bool Refill();
    std::size_t DetectEncoding(std::string_view start);
    void AppendUtf16();

    char* Begin() { return m_buffer.data() + m_nPos; }
    char* End() { return m_buffer.data() + m_buffer.size(); }

    Source m_source;
    std::string m_buffer;    // UTF-8: what was read and not passed yet
    std::size_t m_nPos = 0;  // of the next token in it
    Encoding m_encoding = Encoding::Unknown;
    std::string m_rest;  // of UTF-16: the first bytes of a character
    Token m_token = Token::Nothing;
    std::size_t m_nDepth = 0;              // how many elements are open
    std::vector<std::string> m_openNames;  // theirs, and behind them some that were
    std::string m_prefix;                  // the root's, with its colon
    bool m_bRootSeen = false, m_bEmptyElement = false, m_bReferences = false, m_bSpecialValues = false;
    std::string_view m_name, m_text;
    std::vector<NameAndValue> m_attributes;
};
