#include "MaterialLimitsCheck.h"

#include <gtest/gtest.h>

TEST(MaterialLimitsCheckTest, FindsTheFirstFlaw) {
    using enum MaterialLimitsFlaw;
    using namespace MaterialColumn;
    const MaterialLimitTexts good{L"Steel", L"5", L"6.5"}, empty{};
    const struct {
        std::vector<MaterialLimitTexts> rows;
        MaterialLimitsFlaw flaw;
        int nRow;
        Index column;
    } kCases[] = {
        {{good, {L"", L"", L"6"}}, NoMaterial, 2, Material},
        {{empty, {L"Iron", L"", L"6"}}, NoPositiveNumber, 2, Minimum},
        {{{L"Iron", L"0.0", L"6"}}, NoPositiveNumber, 1, Minimum},
        {{{L"Iron", L"1", L"1.2.3"}}, NoPositiveNumber, 1, Maximum},
        {{{L"Iron", L"1", L"6 mm"}}, NoPositiveNumber, 1, Maximum},
        {{{L"Iron", L"1", L"."}}, NoPositiveNumber, 1, Maximum},
        {{{L"Iron", L"5.01", L"5"}}, MinimumAboveMaximum, 1, Maximum},
        {{good, empty, good}, MaterialTwice, 3, Material},
    };
    for (const auto& [rows, flaw, nRow, column] : kCases) {
        SCOPED_TRACE(rows.back().strMaximum.GetString());
        const MaterialLimitsResult result = CheckMaterialLimits(rows);
        EXPECT_EQ(result.flaw, flaw);
        EXPECT_EQ(result.nRow, nRow);
        EXPECT_EQ(result.column, column);
        EXPECT_TRUE(result.limits.empty());
    }
    const MaterialLimitTexts equal{L"Iron", L"5.0000005", L"5"};
    EXPECT_EQ(CheckMaterialLimits(std::vector{empty, good, equal, empty}).limits,
              (std::vector<MaterialLimits>{{L"Steel", 5, 6.5}, {L"Iron", 5.0000005, 5}}));
}
