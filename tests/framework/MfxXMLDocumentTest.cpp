#include "MfxXMLDocument.h"

#include "FrameworkTestSupport.h"

#include <tuple>

using namespace std::string_literals;

namespace {

std::string Nested(int nDepth, const std::string& innermost) {
    std::string start, end;
    for (; nDepth > 0; --nDepth) start += "<a>", end += "</a>";
    return start + innermost + end;
}

std::string Utf16(const std::u16string& text, int nFirstShift) {
    std::string bytes;
    for (const char16_t ch : u"\uFEFF" + text)
        for (const int nShift : {nFirstShift, 8 - nFirstShift})
            bytes += static_cast<char>(ch >> nShift & 0xFF);
    return bytes;
}

}  // namespace

TEST(MfxXMLDocumentTest, KeepsWhatItRead) {
    const std::string text =
        "<?xml version=\"1.0\" standalone=\"yes\"?>\n<!DOCTYPE Rules>\n<Rules>\n  <Text> \t</Text>\n"
        "  <Lines>first\r\nsecond\rthird\n</Lines>\n  <Mixed>a<!-- c -->b<![CDATA[<&>]]></Mixed>\n"
        "</Rules>\n<!-- after -->\n";
    MfxXMLDocument document;
    ParseRoot(document, text);
    EXPECT_EQ(document.ToUtf8(), text);
}

TEST(MfxXMLDocumentTest, ReadsItsEncodings) {
    const std::u16string wide = u"<a b='\u9435'>\U0001F600</a>";
    const std::string narrow = "<a b='\xE9\x90\xB5'>\xF0\x9F\x98\x80</a>";
    for (const std::string& text :
         {narrow, "\xEF\xBB\xBF" + narrow, "<?xml version=\"1.0\" encoding=\"utf-8\"?>" + narrow,
          Utf16(wide, 0), Utf16(wide, 8), Utf16(u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + wide, 0)}) {
        MfxXMLDocument document;
        const NodePtr pRoot = ParseRoot(document, text);
        ASSERT_TRUE(pRoot);
        EXPECT_EQ(pRoot->GetNodeValue(), L"\U0001F600");
        EXPECT_EQ(document.ToUtf8(), AsDocument("<a b=\"\xE9\x90\xB5\">\xF0\x9F\x98\x80</a>"));
    }
}

TEST(MfxXMLDocumentTest, RefusesWithThePlace) {
    const std::string strDeep = Nested(MfxXMLDocument::kMaxDepth, "\n<b/>"), strAbyss = Nested(100'000, "");
    const std::tuple<std::string, int, int> cases[] = {{"", 1, 1},
                                                       {"<a>\r\n  <b>\r\n</a>", 3, 3},
                                                       {"<a/>\n<!-- -->\n  <b/>", 3, 4},
                                                       {"<a>\n\n \xE4 </a>", 3, 1},
                                                       {"\xEF\xBB\xBF<a>\xC3</a>", 1, 1},
                                                       {"<a/>\n \0<b"s, 2, 2},
                                                       {"\xFF\xFE<\0a\0/\0>\0x"s, 1, 1},
                                                       {strDeep, 2, 2},
                                                       {strAbyss, 1, 770}};
    for (const auto& [text, nLine, nColumn] : cases) {
        SCOPED_TRACE(text.substr(0, 40));
        MfxXMLDocument document;
        ParseRoot(document, "<old/>");
        const MfxXmlParseResult result = document.Parse(text);
        EXPECT_FALSE(result.bOk);
        EXPECT_NE(result.strReason, L"");
        EXPECT_EQ(std::pair(result.nLine, result.nColumn), std::pair(nLine, nColumn));
        EXPECT_FALSE(NodePtr(document.GetRootNode())) << "nothing of either text is left";
    }
    EXPECT_TRUE(MfxXMLDocument().Parse(Nested(MfxXMLDocument::kMaxDepth, "text<!-- comment -->")).bOk);
}

TEST(MfxXMLDocumentTest, KnowsTheLineOfElementsAndSavesAttachedOnes) {
    MfxXMLDocument document;
    NodePtr pRoot = ParseRoot(document, "\xEF\xBB\xBF<!--\n-->\r\n<a>\r\n<b/><c\nd=''/></a>");
    const NodePtr pC(pRoot->SelectSingleNode(L"c")), pNew(pRoot->AppendNode(CString(L"e")));
    EXPECT_EQ(document.GetLine(*pRoot), 3);
    EXPECT_EQ(document.GetLine(*pC), 4);
    EXPECT_EQ(document.GetLine(*pNew), 0);

    pRoot.reset(document.CreateRootNode(L"Rules"));
    const NodePtr pRule(document.CreateNode(L"Rule")), pLost(document.CreateNode(L"Lost"));
    EXPECT_FALSE(NodePtr(pRule->GetParentNode()));
    EXPECT_FALSE(NodePtr(pRoot->GetParentNode()));
    pRoot->AppendNode(pRule.get());
    EXPECT_EQ(document.ToUtf8(), AsDocument("<Rules>\n  <Rule />\n</Rules>"));
    EXPECT_EQ(NodePtr(pRule->GetParentNode())->GetNodeName(), L"Rules");
}
