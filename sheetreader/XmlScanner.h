#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// Walks once through the XML of a workbook's part, which it does not keep: UTF-8 or UTF-16, without document
// type. All members throw std::runtime_error when it is not well-formed, has elements nested deeper than 256,
// or a tag or text longer than 16 MB. Views are valid until the next element or text.
class XmlScanner {
  public:
    // Fills a buffer and returns how many bytes it has got; 0 at the end.
    using Source = std::function<std::size_t(char*, std::size_t)>;

    explicit XmlScanner(Source source) : m_source(std::move(source)) {}

    // To the root element, which must have this name; and from there to the part's end.
    void EnterRoot(std::string_view name);
    void Finish();

    // Calls with the name of each child of the open element; the child then is the open one. What the handler
    // leaves of it is passed over. Names have no prefix, unless it is another one than the root's.
    template <class Handler>
    void ForEachChild(Handler&& handler) {
        for (const std::size_t nDepth = m_lengths.size(); Next(), m_lengths.size() >= nDepth;)
            if (m_token == Token::Start && m_lengths.size() == nDepth + 1) handler(m_name);
    }

    // Of the element that was just entered, by its name without prefix; empty when it has none.
    std::string_view Attribute(std::string_view name) const;

    // Appends the open element's own text.
    void ReadText(std::string& text);

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
    void DetectEncoding();
    void AppendUtf16(const std::string& bytes);

    char* Begin() { return m_buffer.data() + m_nPos; }
    char* End() { return m_buffer.data() + m_buffer.size(); }

    Source m_source;
    std::string m_buffer;    // UTF-8: what was read and not passed yet
    std::size_t m_nPos = 0;  // of the next token in it
    Encoding m_encoding = Encoding::Unknown;
    std::string m_rest;  // of UTF-16: the first bytes of a character
    Token m_token = Token::Nothing;
    std::string m_openNames;             // of the open elements, one behind the other
    std::vector<std::size_t> m_lengths;  // of these names
    std::string m_prefix;                // the root's, with its colon
    bool m_bRootSeen = false, m_bEmptyElement = false, m_bReferences = false, m_bSpecialValues = false;
    std::string_view m_name, m_text;
    std::vector<NameAndValue> m_attributes;
};
