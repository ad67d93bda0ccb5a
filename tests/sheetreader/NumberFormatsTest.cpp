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
         {"General", "GENERAL;-General", "[]0.0", "0.00%", "# ?/?", "0.00E+00", "0.0e-0", "[$-411]0",
          "[Red][&lt;0]-0.0;[$-409]0.0", "0.0\\d;0_d;*d0\\e", "0.0&quot; dmy&quot;;&quot;h",
          "0.0&quot;mm&quot;", "_(* #,##0.00_$", "0.0_₸*¢"})
        EXPECT_TRUE(IsPlain(164, code)) << code;
    EXPECT_TRUE(IsPlain(164, "G/标准"));  // General in East Asian versions
    for (const std::string date : {"yyyy\\-mm", "h:mm AM/PM", "[mm]:ss", "[HH]", "A/P", "b", "AAA", "ggge",
                                   "e&quot;x&quot;", "0;[$-411]m&quot;x&quot;"})
        EXPECT_FALSE(IsPlain(164, date)) << date;
    for (const std::string currency :
         {"_($* #,##0.00_)", "\\$0.0", "&quot;$&quot;#,##0", "$-0.0", "#,##0\\ [$CHF-807]", "[$￥-804]0"})
        EXPECT_FALSE(IsPlain(164, currency)) << currency;
    for (const std::string sign : {"€", "₩", "￥", "₸", "₾", "₦", "¢", "؋", "﷼", "𞲰"})
        EXPECT_FALSE(IsPlain(164, "&quot;" + sign + "&quot;#,##0")) << sign;
    // Workbooks give built-in formats codes of their own. A date may become a number, a currency may not.
    EXPECT_TRUE(IsPlain(14, "0.0"));
    EXPECT_TRUE(IsPlain(43, "_-* #,##0.00\\ _€_-"));
    EXPECT_FALSE(IsPlain(44, "_-* #,##0.00\\ &quot;kr&quot;_-"));
}
