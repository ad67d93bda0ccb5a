#include "MfxXMLDocument.h"

#include "FrameworkTestSupport.h"

// Why a text is refused, and where, is seen by the host's tests.

static std::string Utf16(const std::u16string& text, int nFirstShift) {
    std::string bytes;
    for (const char16_t ch : u"\uFEFF" + text)
        for (const int nShift : {nFirstShift, 8 - nFirstShift})
            bytes += static_cast<char>(ch >> nShift & 0xFF);
    return bytes;
}

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
        ParseRoot(document, text);
        EXPECT_EQ(document.ToUtf8(), AsDocument("<a b=\"\xE9\x90\xB5\">\xF0\x9F\x98\x80</a>"));
    }
}
