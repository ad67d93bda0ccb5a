#include "SizeAndWeightCheck.h"

#include <gtest/gtest.h>

#include <vector>

// Most flaws are seen in the dialog of cast size and weight. Here are the rest.
TEST(SizeAndWeightCheckTest, FindsTheFirstFlaw) {
    using enum SizeAndWeightFlaw;
    constexpr double No = kValueNotGiven;
    const struct {
        bool bTyping;
        std::vector<NumberedBand> bands;
        SizeAndWeightFlaw flaw;
        int nRow;
    } kCases[] = {
        {false, {}, NoBands, 0},
        {false, {{1, {No, No, No, No, 3}}, {2, {No, No, No, No, 4}}}, NoBands, 0},
        {false, {{1, {No, No, No, No, 3}}, {2, {No, No, 1, 2, 4}}}, None, 0},
        {false, {{1, {0, 0, No, No, 3}}}, MissingOrZero, 1},  // first and last at once
        {false,
         {{1, {0, 10, No, No, 0}}, {2, {10, 20, No, No, 3}}},
         None,
         0},  // only the last thickness counts
        {false, {{1, {No, 10, 1, 2, 3}}}, SizeIncomplete, 1},
        {false, {{1, {1, 10, 1, No, 3}}}, WeightIncomplete, 1},
        {false, {{1, {No, No, 2, 2.0000005, 3}}}, WeightInverted, 1},
        {true, {}, None, 0},
        {true, {{1, {0, 10, No, No, No}}}, IncompleteWhileTyping, 1},
        {true, {{1, {No, No, 0, 10, 3}}}, None, 0},
    };
    for (const auto& [bTyping, bands, flaw, nRow] : kCases) {
        SCOPED_TRACE(testing::PrintToString(flaw) + " in row " + std::to_string(nRow));
        const auto result =
            bTyping ? CheckSizeAndWeightBandsWhileTyping(bands) : CheckSizeAndWeightBands(bands);
        EXPECT_EQ(result.flaw, flaw);
        EXPECT_EQ(result.nRow, nRow);
    }
    // A row continues the nearest one that has sizes.
    const auto gap = CheckSizeAndWeightBands(
        std::vector<NumberedBand>{{1, {0, 10, No, No, 3}}, {2, {No, No, 1, 2, 3}}, {3, {11, 20, 2, 3, 4}}});
    EXPECT_EQ(gap.flaw, SizeNotContiguous);
    EXPECT_EQ(gap.nRow, 3);
    EXPECT_EQ(gap.expected, 10);
}
