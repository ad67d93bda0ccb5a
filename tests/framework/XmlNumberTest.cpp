#include "XmlNumber.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

TEST(XmlNumberTest, ParsesTheNumberThatATextStartsWith) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const CString strZeros(L'0', 400);
    // Numbers alone: as a whole an integer, a real number, or neither.
    const std::tuple<CString, double, std::int64_t, bool, bool> numbers[] = {
        {L" \t\r\n+7 mm", 7, 7, false, false},
        {L"-3.9e1x", -39, -3, false, false},
        {L"0x10", 0, 0, false, false},
        {L"5\u0665", 5, 5, false, false},
        {L"1,5", 1, 1, false, false},
        {L"2.5e", 2.5, 2, false, false},
        {L"-1e400", -kInfinity, -1, false, true},
        {L"-1e-400 ", -0.0, -1, false, true},
        {L"0." + strZeros + L"1", 0, 0, false, true},
        {L"2147483648", 0x1p31, 2147483648, true, true},
        {L" -9223372036854775809\r\n", -0x1p63, INT64_MIN, true, true}};
    for (const auto& [strText, expected, expectedInteger, bInteger, bReal] : numbers) {
        SCOPED_TRACE(strText.GetString());
        double real = 99;
        std::int64_t wide = 99;
        std::int32_t integer = 99;
        EXPECT_TRUE(ParseReal(strText, real));
        EXPECT_TRUE(ParseInteger(strText, wide));
        EXPECT_TRUE(ParseInteger(strText, integer));
        EXPECT_EQ(FormatShortest(real), FormatShortest(expected)) << "a zero's sign counts";
        EXPECT_EQ(wide, expectedInteger);
        EXPECT_EQ(integer, std::clamp<std::int64_t>(wide, INT32_MIN, INT32_MAX));
        EXPECT_EQ(IsInteger(strText), bInteger);
        EXPECT_EQ(IsReal(strText), bReal);
    }
    EXPECT_EQ(FormatSixDecimals(-1e308).GetLength(), 1 + 309 + 7);
    for (const CString strText : {L"", L" \t", L"abc", L"+", L"-", L"+-5", L"- 5", L"\u0665", L"e5"}) {
        SCOPED_TRACE(strText.GetString());
        double real = 99;
        std::int32_t integer = 99;
        EXPECT_FALSE(ParseReal(strText, real));
        EXPECT_FALSE(ParseInteger(strText, integer));
        EXPECT_EQ(real + integer, 99 + 99) << "they stay as they were";
        EXPECT_FALSE(IsInteger(strText));
        EXPECT_FALSE(IsReal(strText));
    }
}
