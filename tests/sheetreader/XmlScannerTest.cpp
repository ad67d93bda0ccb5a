#include "XmlScanner.h"
#include "support/Utf16.h"

#include <gtest/gtest.h>

namespace {

constexpr std::string_view kDocument =
    "<?xml version='1.0'?><!-- a > b --><p:list\tp:kind = 'x &lt;\r\ny' ><p:item name=\"1\" other='2'>a "
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
        result.append("|")
            .append(name)
            .append(" ")
            .append(xml.Attribute("name"))
            .append(xml.Attribute("other"));
        result.append(" ").append(xml.ReadText(pieces));
    });
    xml.Finish();
    return result;
}

}  // namespace

TEST(XmlScannerTest, ReadsTheSameFromPiecesOfAnySize) {
    for (const std::string& bytes : {"\xEF\xBB\xBF" + std::string(kDocument), ToUtf16(kDocument, false, true),
                                     ToUtf16(kDocument, true, true), ToUtf16(kDocument, false, false)})
        for (std::size_t nPiece = 4; nPiece <= bytes.size(); ++nPiece)
            ASSERT_EQ(Describe(bytes, nPiece), "x <\ny|item 12 a & b<c>]]>d|item  ") << nPiece;
}
