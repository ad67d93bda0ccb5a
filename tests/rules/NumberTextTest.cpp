#include "NumberText.h"

#include <gtest/gtest.h>

TEST(NumberTextTest, FormatsWithoutTrailingZeros) {
    const std::pair<double, const wchar_t*> texts[] = {
        {3, L"3.0"},         {25.4, L"25.4"},        {0, L"0.0"},
        {100, L"100.0"},     {-10.5, L"-10.5"},      {0.1234567, L"0.123457"},
        {2.9999999, L"3.0"}, {1e9, L"1000000000.0"}, {10.010, L"10.01"}};
    for (const auto& [value, pszText] : texts) EXPECT_EQ(FormatDouble(value), pszText);
}

TEST(NumberTextTest, ParsesTheLeadingPointsAndDigits) {
    const std::pair<CString, double> numeric[] = {{L"25.4", 25.4}, {L"", 0},   {L".5", 0.5},
                                                  {L"5.", 5},      {L".", 0},  {L"1.2.3", 1.2},
                                                  {L"1..5", 1},    {L"007", 7}};
    const std::pair<CString, double> others[] = {{L"-5", 0},   {L"+5", 0},      {L" 5", 0},
                                                 {L"5 mm", 5}, {L"1e5", 1},     {L"1,5", 1},
                                                 {L"abc", 0},  {L"5\u0665", 5}, {L"inf", 0}};
    for (const auto& [strText, value] : numeric)
        EXPECT_TRUE(ParseDouble(strText) == value && IsNumericText(strText)) << strText.GetString();
    for (const auto& [strText, value] : others)
        EXPECT_TRUE(ParseDouble(strText) == value && !IsNumericText(strText)) << strText.GetString();
}

TEST(NumberTextTest, KnowsTheOpenUpperLimit) {
    for (const double value : {1e9, 1e9 + 5e-7, 1e9 - 5e-7}) EXPECT_TRUE(IsNoUpperLimit(value));
    for (const double value : {1e9 + 2e-6, 1e9 - 2e-6, -1e9}) EXPECT_FALSE(IsNoUpperLimit(value));
}
