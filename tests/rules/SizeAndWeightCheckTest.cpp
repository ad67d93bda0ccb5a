#include "SizeAndWeightCheck.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Flaw = SizeAndWeightFlaw;
constexpr double No = kValueNotGiven;

struct Case {
    std::vector<NumberedBand> bands;
    Flaw flaw;
    int nRow;
    double expected = 0.0;
};

void Expect(const std::vector<Case>& cases, SizeAndWeightResult (*check)(std::span<const NumberedBand>)) {
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        const SizeAndWeightResult result = check(cases[i].bands);
        EXPECT_EQ(result.flaw, cases[i].flaw);
        EXPECT_EQ(result.nRow, cases[i].nRow);
        EXPECT_EQ(result.expected, cases[i].expected);
    }
}

}  // namespace

TEST(SizeAndWeightCheckTest, FindsTheFirstFlawOfAGroup) {
    Expect(
        {
            {{}, Flaw::NoBands, 0},
            {{{1, {No, No, No, No, 3}}, {2, {No, No, No, No, 4}}}, Flaw::NoBands, 0},
            {{{1, {No, No, No, No, 3}}, {2, {No, No, 1, No, 4}}}, Flaw::WeightIncomplete, 2},
            {{{1, {No, No, No, No, 3}}, {2, {No, No, 1, 2, 4}}}, Flaw::None, 0},
            {{{1, {0, 0, No, No, 3}}}, Flaw::MissingOrZero, 1},                   // first and last at once
            {{{1, {0, 10, No, No, 3}}, {2, {10, 0, No, No, 4}}}, Flaw::None, 0},  // the last band may be open
            {{{1, {0, 0, No, No, 3}}, {2, {10, 20, No, No, 4}}}, Flaw::MissingOrZero, 1},
            {{{1, {0, 10, No, No, 3}}, {3, {10, 20, No, No, 4}}}, Flaw::MissingOrZero, 2},
            {{{1, {0, 10, 0, 1, 3}}}, Flaw::MissingOrZero, 1},
            {{{1, {0, 10, No, No, 3}}, {2, {10, 20, No, No, 0}}}, Flaw::MissingOrZero, 2},
            // Only the last thickness counts.
            {{{1, {0, 10, No, No, 0}}, {2, {10, 20, No, No, 3}}}, Flaw::None, 0},
            {{{1, {0, No, No, No, 3}}}, Flaw::SizeIncomplete, 1},
            {{{1, {No, 10, 1, 2, 3}}}, Flaw::SizeIncomplete, 1},
            {{{1, {1, 10, 1, No, 3}}}, Flaw::WeightIncomplete, 1},
            {{{1, {1, No, No, 2, 3}}}, Flaw::SizeAndWeightIncomplete, 1},
            {{{1, {1, 10, No, No, No}}}, Flaw::ThicknessMissing, 1},
            {{{1, {10, 10, No, No, 3}}}, Flaw::SizeInverted, 1},
            {{{1, {No, No, 2, 2.0000005, 3}}}, Flaw::WeightInverted, 1},
            {{{1, {0, 10, No, No, 3}}, {2, {10.1, 20, No, No, 4}}}, Flaw::SizeNotContiguous, 2, 10},
            {{{1, {0, 10, No, No, 3}}, {2, {10.0000005, 20, No, No, 4}}}, Flaw::None, 0},
            {{{1, {0, 10, No, No, 3}}, {2, {No, No, 1, 2, 3}}, {3, {11, 20, 2, 3, 4}}},
             Flaw::SizeNotContiguous,
             3,
             10},
            {{{1, {0, 10, 1, 2, 3}}, {2, {10, 20, 2.5, 3, 4}}}, Flaw::WeightNotContiguous, 2, 2},
        },
        CheckSizeAndWeightBands);
}

TEST(SizeAndWeightCheckTest, ToleratesUnfinishedRowsAsSuchWhileTyping) {
    Expect(
        {
            {{}, Flaw::None, 0},
            {{{1, {0, No, No, No, No}}}, Flaw::IncompleteWhileTyping, 1},
            {{{1, {0, 10, No, No, No}}}, Flaw::IncompleteWhileTyping, 1},
            {{{2, {5, 4, No, No, 3}}}, Flaw::SizeInverted, 2},
            {{{1, {No, No, 5, 4, 3}}}, Flaw::WeightInverted, 1},
            {{{1, {0, 10, No, No, 3}}, {2, {11, 12, No, No, 3}}}, Flaw::SizeNotContiguous, 2, 10},
            {{{1, {No, No, 0, 10, 3}}, {2, {No, No, 11, 12, 3}}}, Flaw::WeightNotContiguous, 2, 10},
        },
        CheckSizeAndWeightBandsWhileTyping);
}
