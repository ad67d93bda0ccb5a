#include "XmlNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

TEST(XmlNumberTest, Formats) {
    EXPECT_EQ(FormatShortest(0.1) + L' ' + FormatShortest(1e300) + L' ' + FormatShortest(-0.0),
              L"0.1 1e+300 -0");
    EXPECT_EQ(FormatSixDecimals(2.5) + L' ' + FormatSixDecimals(-0.1234567), L"2.500000 -0.123457");
    EXPECT_EQ(FormatSixDecimals(-1e308).GetLength(), 1 + 309 + 7);
    EXPECT_EQ(FormatInteger(INT64_MIN) + FormatInteger(INT64_MAX),
              L"-92233720368547758089223372036854775807");
}

TEST(XmlNumberTest, ParsesTheNumberThatATextStartsWith) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const CString strZeros(L'0', 400);
    double real = 0;
    EXPECT_TRUE(ParseReal(L"0." + strZeros + L"1", real) && real == 0);
    EXPECT_TRUE(ParseReal(L"1" + strZeros + L".5", real) && real == kInfinity);
    const std::tuple<CString, double, std::int64_t> numbers[] = {
        {L" \t\r\n+7 mm", 7, 7},
        {L"-3.9e1x", -39, -3},
        {L"0x10", 0, 0},
        {L"5\u0665", 5, 5},
        {L"2.5e", 2.5, 2},
        {L"-1e400", -kInfinity, -1},
        {L"-1e-400", -0.0, -1},
        {L"2147483648", 0x1p31, 2147483648},
        {L"-9223372036854775809", -0x1p63, INT64_MIN}};
    for (const auto& [strText, expected, expectedInteger] : numbers) {
        SCOPED_TRACE(strText.GetString());
        std::int64_t wide = 99;
        std::int32_t integer = 99;
        EXPECT_TRUE(ParseReal(strText, real) && ParseInteger(strText, wide) &&
                    ParseInteger(strText, integer));
        EXPECT_TRUE(real == expected && std::signbit(real) == std::signbit(expected)) << real;
        EXPECT_EQ(wide, expectedInteger);
        EXPECT_EQ(integer, std::clamp<std::int64_t>(wide, INT32_MIN, INT32_MAX));
    }
    for (const CString strText :
         {L"", L" \t", L"abc", L"+", L"-", L"+-5", L"++5", L"- 5", L"\u0665", L"e5"}) {
        SCOPED_TRACE(strText.GetString());
        real = 99;
        std::int32_t integer = 99;
        EXPECT_FALSE(ParseReal(strText, real) || ParseInteger(strText, integer));
        EXPECT_TRUE(real == 99 && integer == 99);
    }
}

TEST(XmlNumberTest, KnowsTextsThatAreNumbersOnly) {
    for (const CString strText : {L"5", L" +5\t", L"-5\r\n", L"99999999999999999999"})
        EXPECT_TRUE(IsInteger(strText) && IsReal(strText)) << strText.GetString();
    for (const CString strText : {L"5.0", L".5", L" 1e400", L"-2.5E-3 "})
        EXPECT_TRUE(!IsInteger(strText) && IsReal(strText)) << strText.GetString();
    for (const CString strText :
         {L"", L" ", L"-", L"+-5", L"5 mm", L"1.2.3", L"1,5", L"5\u0665", L"5 6", L"0x10"})
        EXPECT_FALSE(IsInteger(strText) || IsReal(strText)) << strText.GetString();
}
