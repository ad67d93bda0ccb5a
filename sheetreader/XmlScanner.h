#pragma once

#include "XmlBuffer.h"

#include <string>
#include <string_view>
#include <vector>

// Walks once through the XML of a workbook's part and keeps nothing of it. All members throw
// std::runtime_error when tags are not well-formed or too large (Limits.h), elements are nested too deep, or
// the part has a document type. Characters of names, and what is passed over, are not checked. Views are
// valid until the next element or text.
class XmlScanner {
  public:
    explicit XmlScanner(XmlBuffer::Source source) : m_buffer(std::move(source)) {}

    // To the root element, which must have this name.
    void EnterRoot(std::string_view name);

    // From there to the part's end.
    void Finish();

    // Calls the handler with the name of each child of the open element. The child is open during the call;
    // what the handler leaves of it is passed over. The prefix of the root element is cut off the names.
    template <class Handler>
    void ForEachChild(Handler&& handler) {
        const std::size_t nParentDepth = m_nDepth;
        while (NextWithin(nParentDepth))
            if (m_token == Token::Start && m_nDepth == nParentDepth + 1) handler(m_name);
    }

    // Of the element that was just entered, by its name as it is written; empty when it has none.
    std::string_view Attribute(std::string_view name) const;

    // The first one that has a prefix and behind it this name.
    std::string_view PrefixedAttribute(std::string_view name) const;

    // Text of the open element without that of its children. The view is of the XML or, when the text is in
    // several pieces, of these put together. The element may still be open afterwards.
    std::string_view ReadText(std::string& pieces);

  private:
    enum class Token { Start, End, Text, Nothing };
    struct NameAndValue {
        std::string_view name, value;
    };

    void Next();
    bool NextWithin(std::size_t nDepth);
    Token ReadToken();
    bool AtPartEnd();
    void SkipComment();

    Token ReadStartTag();
    bool ParseStartTag();
    bool ParseAttribute(char*& p);
    void ResolveValues();
    void NoteRoot();
    void OpenElement();

    Token ReadEndTag();
    bool ParseEndTag();
    Token CloseElement();

    Token ReadCharacters();
    Token ReadCdata();
    bool IsWholeText();

    XmlBuffer m_buffer;
    Token m_token = Token::Nothing;
    std::size_t m_nDepth = 0;              // how many elements are open
    std::vector<std::string> m_openNames;  // as many, and then old ones, kept for their memory
    std::string m_rootPrefix;              // with its colon
    bool m_bRootSeen = false;
    bool m_bEmptyElement = false;  // the token is a tag such as <c/>, whose end comes next
    bool m_bRawText = false;       // m_text has references or line ends to resolve
    bool m_bRawValues = false;     // an attribute's value has some
    std::string_view m_name, m_text;
    std::vector<NameAndValue> m_attributes;
};

// Moves to the next token; false when that is the end of the element at this depth.
inline bool XmlScanner::NextWithin(std::size_t nDepth) {
    Next();
    return m_nDepth >= nDepth;
}
