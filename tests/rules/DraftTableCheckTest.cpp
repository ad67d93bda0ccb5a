#include "DraftTableCheck.h"

#include "ValueText.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<LPCWSTR>;

std::vector<MfxTableRow> Rows(const Texts& texts) {
    std::vector<MfxTableRow> rows(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) FromText(texts[i], rows[i]);
    return rows;
}

}  // namespace

// The plain flaws are seen in the dialog of draft angles and in sheets. Here are the rest.
TEST(DraftTableCheckTest, FindsTheFirstFlaw) {
    using enum DraftTableFlaw;
    using namespace DraftCell;
    const struct {
        Texts rows;
        DraftTableFlaw flaw;
        int nRow;
        DraftCell::Index cell;
        double expected;
    } kCases[] = {
        {{L"0;1;3;;;", L"1;2;3;3;;"}, EmptyCell, 1, SecondAngle, 0},
        {{L"0;1;0.0000005;3;;"}, IncompleteRow, 1, FirstAngle, 0},
        {{L"0;1;3;3;0;"}, None, 0, LowerBound, 0},
        // Only the first band begins at zero, and only the last one is open.
        {{L"0;1;3;3;;", L"0;2;3;3;;"}, IncompleteRow, 2, LowerBound, 0},
        {{L"0;;3;3;;", L"1;2;3;3;;"}, IncompleteRow, 1, UpperBound, 0},
        {{L"5;5.0000005;3;3;;"}, UpperNotAboveLower, 1, UpperBound, 0},
        {{L"5;5.00001;3;3;;"}, None, 0, LowerBound, 0},
        {{L"0;1;3;3;;", L"1.000001;2;3;3;;"}, None, 0, LowerBound, 0},
        {{L"0;1000000000;3;3;;", L"2;3;3;3;;"}, NotContiguous, 2, LowerBound, 1e9},
        {{L"9;5;3;3;;", L"1;2;3;;;"}, EmptyCell, 2, SecondAngle, 0},  // shapes come before values
    };
    for (const auto& [rows, flaw, nRow, cell, expected] : kCases) {
        SCOPED_TRACE(testing::PrintToString(rows));
        const DraftTableResult result = CheckDraftTable(Rows(rows));
        EXPECT_EQ(result.flaw, flaw);
        EXPECT_EQ(result.nRow, nRow);
        EXPECT_EQ(result.cell, cell);
        EXPECT_EQ(result.expected, expected);
        EXPECT_EQ(result.bands.empty(), flaw != None);
    }
}
