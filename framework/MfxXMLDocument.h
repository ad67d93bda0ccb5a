#pragma once

#include "MfxKitExport.h"
#include "MfxXMLNode.h"

#include <afx.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
class xml_document;
}

// Outcome of MfxXMLDocument::Parse: failed until the whole document was read.
struct MfxXmlParseResult {
    bool bOk = false;
    int nLine = 0;    // from 1; 0 where no place can be named
    int nColumn = 0;  // from 1
    CString strReason = {};
};

// What XML does not allow, but is read and saved all the same: an attribute that an element has twice, of
// which the first one counts, and characters below the blank.
struct MfxXmlFlaw {
    enum Kind { RepeatedAttribute, ControlCharacter };
    Kind kind;
    MfxXMLNode element;
    CString strAttribute;  // empty for the element's text
};

// An XML document. It also keeps the elements that were created in it and not appended anywhere; those are
// never written. Comments, processing instructions and texts are kept as they were read, also a blank text
// that is all of an element's content.
class MFXKIT_API MfxXMLDocument {
  public:
    MfxXMLDocument();
    ~MfxXMLDocument();
    MfxXMLDocument(const MfxXMLDocument&) = delete;
    MfxXMLDocument& operator=(const MfxXMLDocument&) = delete;

    // A new element that is attached nowhere; the caller owns the wrapper. Null when the tag can't be an
    // element's.
    MfxXMLNode* CreateNode(const CString& strTag);

    // Replaces the content by the text of a file: UTF-8, or UTF-16 with a byte-order mark. On failure the
    // document is empty. Elements may be nested kMaxDepth deep and have kMaxAttributes each: finding one
    // takes time in proportion to their number. Refused is also what would not be saved as it was: entities
    // and other declarations of a document type, references to characters that do not exist.
    MfxXmlParseResult Parse(std::string_view bytes);
    static constexpr int kMaxDepth = 256;
    static constexpr int kMaxAttributes = 256;

    // The document as UTF-8, with an XML declaration, elements indented by two blanks.
    std::string ToUtf8() const;

    // The outermost element, or null; the caller owns the wrapper.
    MfxXMLNode* GetRootNode() const;

    // Empties the document and gives it this outermost element; the caller owns the wrapper.
    MfxXMLNode* CreateRootNode(const CString& strTag);

    // Line of the parsed text in which the element starts, from 1; 0 for elements created later.
    int GetLine(const MfxXMLNode& node) const;

    // In the order of the document.
    std::vector<MfxXmlFlaw> FindFlaws() const;

    // The document in which constraints and parameters create their elements; null outside a write.
    static MfxXMLDocument* GetCurrent();

  private:
    friend class CurrentDocumentScope;

    void Clear();

    // Steps of parsing m_source.
    MfxXmlParseResult CheckEncoding();
    MfxXmlParseResult BuildTree();
    MfxXmlParseResult CheckReferences();
    MfxXmlParseResult CheckOutermostElement();
    MfxXmlParseResult CheckSize();

    // The result of a failed step, which also empties the document.
    MfxXmlParseResult Fail(std::ptrdiff_t nOffset, const CString& strReason);
    MfxXmlParseResult FailAtByte(std::size_t nByte, const CString& strReason);
    MfxXmlParseResult Fail(int nLine, int nColumn, const CString& strReason);
    void IndexLines() const;
    int LineAt(std::ptrdiff_t nOffset) const;

    std::unique_ptr<pugi::xml_document> m_pDocument;
    std::string m_source;                              // the parsed text, UTF-8
    mutable std::vector<std::ptrdiff_t> m_lineStarts;  // offsets in UTF-16 units; made on the first question
};

// Makes a document the current one for the life of the scope.
class MFXKIT_API CurrentDocumentScope {
  public:
    explicit CurrentDocumentScope(MfxXMLDocument* pDocument);
    ~CurrentDocumentScope();
    CurrentDocumentScope(const CurrentDocumentScope&) = delete;
    CurrentDocumentScope& operator=(const CurrentDocumentScope&) = delete;

  private:
    MfxXMLDocument* m_pPrevious;
};
