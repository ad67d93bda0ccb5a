#include "NumberText.h"

#include "MaterialTables.h"

#include <gtest/gtest.h>

TEST(NumberTextTest, FormatsWithoutTrailingZeros) {
    const std::pair<double, const wchar_t*> texts[] = {
        {3, L"3.0"},         {25.4, L"25.4"},        {0, L"0.0"},
        {100, L"100.0"},     {-10.5, L"-10.5"},      {0.1234567, L"0.123457"},
        {2.9999999, L"3.0"}, {1e9, L"1000000000.0"}, {10.010, L"10.01"}};
    for (const auto& [value, pszText] : texts) EXPECT_EQ(FormatDouble(value), pszText);
}

TEST(NumberTextTest, ParsesTheLeadingPointsAndDigits) {
    const struct {
        CString strText;
        double value;
        bool bNumeric;  // points and digits only
    } kCases[] = {{L"25.4", 25.4, true}, {L"", 0, true},      {L".5", 0.5, true},    {L".", 0, true},
                  {L"1.2.3", 1.2, true}, {L"1..5", 1, true},  {L"007", 7, true},     {L"-5", 0, false},
                  {L" 5", 0, false},     {L"5 mm", 5, false}, {L"1e5", 1, false},    {L"1,5", 1, false},
                  {L"abc", 0, false},    {L"inf", 0, false},  {L"5\u0665", 5, false}};
    for (const auto& [strText, value, bNumeric] : kCases) {
        EXPECT_EQ(ParseDouble(strText), value) << strText.GetString();
        EXPECT_EQ(IsNumericText(strText), bNumeric) << strText.GetString();
    }
}

TEST(NumberTextTest, KnowsTheOpenUpperLimit) {
    for (const double value : {1e9, 1e9 + 5e-7, 1e9 - 5e-7}) EXPECT_TRUE(IsNoUpperLimit(value));
    for (const double value : {1e9 + 2e-6, 1e9 - 2e-6, -1e9}) EXPECT_FALSE(IsNoUpperLimit(value));
}

TEST(MaterialTablesTest, LimitsMakeSense) {
    for (const int nCategory : {9, 19}) {
        EXPECT_FALSE(GetDefaultMaterials(nCategory).empty()) << nCategory;
        for (const auto& material : GetDefaultMaterials(nCategory))
            EXPECT_GT(ParseDouble(material.pszMaximumInch), ParseDouble(material.pszMinimumInch))
                << material.pszMaterial;
    }
    EXPECT_TRUE(GetDefaultMaterials(1).empty());
    EXPECT_TRUE(GetMaterialGroups(9).empty());
    EXPECT_FALSE(GetMaterialGroups(19).empty());
}
