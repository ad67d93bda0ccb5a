#include "NumberFormats.h"

#include <gtest/gtest.h>

namespace {

// Whether a number in this format is a plain one. The code is that of the workbook, if it has one.
bool IsPlain(int nFormat, const std::string& code = "") {
    const std::string id = "numFmtId='" + std::to_string(nFormat) + "'";
    std::string xml = "<styleSheet><numFmts>" +
                      (code.empty() ? "" : "<numFmt " + id + " formatCode='" + code + "'/>") +
                      "</numFmts><cellStyleXfs><xf numFmtId='14'/></cellStyleXfs><cellXfs><xf/><xf " + id +
                      "/></cellXfs></styleSheet>";
    const NumberFormats formats(XmlScanner([&, nPiece = 0]() mutable -> std::string_view {
        return nPiece++ == 0 ? std::string_view(xml) : std::string_view();
    }));
    return formats.IsPlain(1);
}

}  // namespace

TEST(NumberFormatsTest, TellsPlainNumbersFromDatesAndCurrencies) {
    for (const int nPlain : {1, 10, 12, 39, 41, 43, 48, 49}) EXPECT_TRUE(IsPlain(nPlain)) << nPlain;
    for (const int nOther : {5, 8, 14, 22, 42, 44, 46, 57, 81}) EXPECT_FALSE(IsPlain(nOther)) << nOther;
    for (const std::string code :
         {"General", "[]0.0", "0.00%", "# ?/?", "0.00E+00", "[Red][&lt;0]-0.0;[$-409]0.0", "0.0\\d;0_d;*d0",
          "0.0&quot; dmy&quot;;&quot;h", "0.0&quot;mm&quot;", "_(* #,##0.00_$", "0.0e-0", "GENERAL;-General",
          "G/通用格式", "0.0_₸*¢", "0.0&quot;ab&quot;\\e", "[$-411]0"})
        EXPECT_TRUE(IsPlain(164, code)) << code;
    for (const std::string code : {"_($* #,##0.00_)",
                                   "yyyy\\-mm",
                                   "0;[$-411]ggge&quot;年&quot;m&quot;月&quot;",
                                   "h:mm AM/PM",
                                   "[mm]:ss",
                                   "[HH]",
                                   "\\$0.0",
                                   "&quot;$&quot;#,##0",
                                   "#,##0\\ [$CHF-807]",
                                   "&quot;₩&quot;#,##0",
                                   "[$￥-804]#,##0",
                                   "#,##0.00 €",
                                   "A/P",
                                   "ggge&quot;年&quot;",
                                   "e&quot;年&quot;",
                                   "b",
                                   "AAA",
                                   "0 ₸",
                                   "₾0",
                                   "&quot;₦&quot;0",
                                   "0\\¢",
                                   "0 ؋",
                                   "﷼0",
                                   "0꠸",
                                   "𞲰0"})
        EXPECT_FALSE(IsPlain(164, code)) << code;
    // Workbooks give built-in formats codes of their own. A date may become a number, a currency may not.
    EXPECT_TRUE(IsPlain(14, "0.0"));
    EXPECT_TRUE(IsPlain(43, "_-* #,##0.00\\ _€_-"));
    EXPECT_FALSE(IsPlain(44, "_-* #,##0.00\\ &quot;kr&quot;_-"));
}
