#include "XmlNumber.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace

TEST(XmlNumberTest, Formats) {
    EXPECT_EQ(FormatShortest(0.1), L"0.1");
    EXPECT_EQ(FormatShortest(1e300), L"1e+300");
    EXPECT_EQ(FormatShortest(1e-300), L"1e-300");
    EXPECT_EQ(FormatShortest(-0.0), L"-0");
    EXPECT_EQ(FormatShortest(16), L"16");
    EXPECT_EQ(FormatSixDecimals(2.5), L"2.500000");
    EXPECT_EQ(FormatSixDecimals(-0.0000005), L"-0.000000") << "rounds to even as %f does";
    EXPECT_EQ(FormatSixDecimals(-1e308).GetLength(), 1 + 309 + 7);
    EXPECT_EQ(FormatInteger(INT64_MIN), L"-9223372036854775808");
    EXPECT_EQ(FormatInteger(INT64_MAX), L"9223372036854775807");
}

TEST(XmlNumberTest, ParsesTheNumberThatATextStartsWith) {
    const struct {
        const wchar_t* pszText;
        double real;
        std::int32_t integer;
    } numbers[] = {
        {L"12", 12, 12},         {L" \t\r\n+7 mm", 7, 7}, {L"-3.9e1x", -39, -3}, {L"1,5", 1, 1},
        {L"0x10", 0, 0},         {L"5\u0665", 5, 5},       {L"007", 7, 7},        {L"2147483647", INT_MAX, INT_MAX},
        {L"2.5e", 2.5, 2},       {L"1e400", kInfinity, 1}, {L"-1e400", -kInfinity, -1},
    };
    for (const auto& number : numbers) {
        SCOPED_TRACE(number.pszText);
        double real = 99;
        std::int32_t integer = 99;
        EXPECT_TRUE(ParseReal(number.pszText, real));
        EXPECT_EQ(real, number.real);
        EXPECT_TRUE(ParseInteger(number.pszText, integer));
        EXPECT_EQ(integer, number.integer);
    }
    double real = 99;
    EXPECT_TRUE(ParseReal(L".5", real) && real == 0.5);
    EXPECT_TRUE(ParseReal(L"-1e-400", real) && real == 0 && std::signbit(real));
    EXPECT_TRUE(ParseReal(L"0." + CString(L'0', 400) + L"1", real) && real == 0);
    EXPECT_TRUE(ParseReal(L"1" + CString(L'0', 400) + L".5", real) && real == kInfinity);
}

TEST(XmlNumberTest, LeavesTheValueAloneWithoutANumber) {
    for (const wchar_t* pszText : {L"", L" \t", L"abc", L"+", L"-", L"+-5", L"++5", L"- 5", L"\u0665", L"e5"}) {
        SCOPED_TRACE(pszText);
        double real = 99;
        std::int32_t integer = 99;
        std::int64_t wide = 99;
        EXPECT_FALSE(ParseReal(pszText, real) || ParseInteger(pszText, integer) || ParseInteger(pszText, wide));
        EXPECT_TRUE(real == 99 && integer == 99 && wide == 99);
        EXPECT_FALSE(IsReal(pszText) || IsInteger(pszText));
    }
}

TEST(XmlNumberTest, IntegersStopAtTheirLimits) {
    std::int32_t integer = 0;
    std::int64_t wide = 0;
    for (const wchar_t* pszText : {L"2147483648", L"99999999999999999999"}) {
        EXPECT_TRUE(ParseInteger(pszText, integer)) << pszText;
        EXPECT_EQ(integer, INT32_MAX);
        EXPECT_TRUE(ParseInteger(CString(L" -") + pszText, integer)) << pszText;
        EXPECT_EQ(integer, INT32_MIN);
    }
    EXPECT_TRUE(ParseInteger(L"9223372036854775808", wide));
    EXPECT_EQ(wide, INT64_MAX);
    EXPECT_TRUE(ParseInteger(L"-9223372036854775809", wide));
    EXPECT_EQ(wide, INT64_MIN);
}

TEST(XmlNumberTest, KnowsTextsThatAreNumbersOnly) {
    for (const wchar_t* pszText : {L"5", L" +5\t", L"-5\r\n", L"99999999999999999999"})
        EXPECT_TRUE(IsInteger(pszText) && IsReal(pszText)) << pszText;
    for (const wchar_t* pszText : {L"5.0", L".5", L" 1e400", L"-2.5E-3 "})
        EXPECT_TRUE(!IsInteger(pszText) && IsReal(pszText)) << pszText;
    for (const wchar_t* pszText : {L"5 mm", L"1.2.3", L"1,5", L"5\u0665", L"5 6", L"0x10"})
        EXPECT_FALSE(IsInteger(pszText) || IsReal(pszText)) << pszText;
}
