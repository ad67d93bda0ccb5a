#include "NumberText.h"

#include <gtest/gtest.h>

#include <limits>

TEST(NumberTextTest, FormatsWithoutTrailingZeros) {
    const struct {
        double value;
        const wchar_t* pszText;
    } cases[] = {
        {3, L"3.0"},         {25.4, L"25.4"},           {0, L"0.0"},       {100, L"100.0"},
        {-10.5, L"-10.5"},   {0.1234567, L"0.123457"},  {1e-7, L"0.0"},    {2.9999999, L"3.0"},
        {1e9, L"1000000000.0"}, {10.010, L"10.01"}, {-1, L"-1.0"},
        {std::numeric_limits<double>::infinity(), L"inf"},
    };
    for (const auto& c : cases) EXPECT_EQ(FormatDouble(c.value), c.pszText) << c.value;
}

TEST(NumberTextTest, ParsesTheLeadingPointsAndDigits) {
    const struct {
        const wchar_t* pszText;
        double value;
        BOOL bNumeric;
    } cases[] = {
        {L"25.4", 25.4, TRUE}, {L"", 0, TRUE},        {L".5", 0.5, TRUE},  {L"5.", 5, TRUE},   {L".", 0, TRUE},
        {L"1.2.3", 1.2, TRUE}, {L"1..5", 1, TRUE},    {L"007", 7, TRUE},   {L"-5", 0, FALSE},  {L"+5", 0, FALSE},
        {L" 5", 0, FALSE},     {L"5 mm", 5, FALSE},   {L"1e5", 1, FALSE},  {L"1,5", 1, FALSE}, {L"abc", 0, FALSE},
        {L"5\u0665", 5, FALSE}, {L"inf", 0, FALSE},   {L"0x10", 0, FALSE},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszText);
        EXPECT_EQ(ParseDouble(c.pszText), c.value);
        EXPECT_EQ(IsNumericText(c.pszText), c.bNumeric);
    }
}

TEST(NumberTextTest, KnowsTheOpenUpperLimit) {
    for (const double value : {1e9, 1e9 + 5e-7, 1e9 - 5e-7}) EXPECT_TRUE(IsNoUpperLimit(value));
    for (const double value : {1e9 + 2e-6, 1e9 - 2e-6, -1e9, 1e10}) EXPECT_FALSE(IsNoUpperLimit(value));
}
