#include "XmlScanner.h"
#include "support/Texts.h"
#include "support/Utf16.h"

#include <gtest/gtest.h>

namespace {

constexpr std::string_view kDocument =
    "<?xml version='1.0'?><!-- a > b --><p:list\tkind = 'x &lt;\r\ny' q:kind='q'><p:item q:name='q' "
    "name=\"1\" other='2'>a "
    "&amp; b"
    "<![CDATA[<c>]]>]]&gt;<q:item>no</q:item><!-- -- > -->d</p:item ><p:item\n/><?end?></p:list>\n";

// What there is in the document, read from pieces of that many bytes.
std::string Describe(std::string_view bytes, std::size_t nPiece) {
    XmlScanner xml([&] {
        const std::string_view piece = bytes.substr(0, nPiece);
        bytes.remove_prefix(piece.size());
        return piece;
    });
    std::string result, pieces;
    xml.EnterRoot("list");
    result += xml.Attribute("kind");
    xml.ForEachChild([&](std::string_view name) {
        result.append("|").append(name).append(" ");
        result.append(xml.Attribute("name")).append(xml.Attribute("other"));
        result.append(" ").append(xml.ReadText(pieces));
    });
    xml.Finish();
    return result;
}

}  // namespace

TEST(XmlScannerTest, ReadsTheSameFromPiecesOfAnySize) {
    for (const std::string& bytes :
         {"\xEF\xBB\xBF" + std::string(kDocument), ToUtf16(kDocument, false, true),
          ToUtf16(kDocument, true, true), ToUtf16(kDocument, false, false), ToUtf16(kDocument, true, false)})
        for (std::size_t nPiece = 4; nPiece <= bytes.size(); ++nPiece)
            ASSERT_EQ(Describe(bytes, nPiece), "x <\ny|item 12 a & b<c>]]>d|item  ") << nPiece;
}

TEST(XmlScannerTest, RefusesWhatIsNotWellFormed) {
    const auto expectRefused = [](const std::string& document) {
        EXPECT_THROW(Describe(document, 4096), std::runtime_error) << document.substr(0, 60);
    };
    for (const std::string document :
         {"", "<other/>", "<list>", "<list></listing>", "<list></lis>", "</list>", "<list/><list/>",
          "<list/>x", "x<list/>", "<![CDATA[x]]><list/>", "<!DOCTYPE list [<!ENTITY one '1'>]><list/>",
          "<list a/>", "<list a=1/>", "<list a='<'/>", "<list / >", "<list><!-- </list>"})
        expectRefused(document);
    for (const std::string text : {"&one;", "&#xD800;", "&#0;", "&amp"})
        expectRefused("<list><item>" + text + "</item></list>");
    expectRefused(std::string("<list>\0</list>", 14));
    expectRefused(ToUtf16("<list/>", false, true) + "\n");                            // half a character
    expectRefused(ToUtf16("<list/>", false, true) + std::string("\x01\xD8\n\0", 4));  // half a pair
    expectRefused("<list>" + Repeated("<a>", 300) + Repeated("</a>", 300) + "</list>");
    expectRefused("<list a='" + std::string(34 << 20, '>') + "'/>");
    expectRefused("<list " + Repeated("a='' ", 300) + "/>");
    expectRefused("<list><" + std::string(5000, 'a') + "/></list>");
}
