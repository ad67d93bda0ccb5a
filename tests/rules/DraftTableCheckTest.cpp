#include "DraftTableCheck.h"

#include <gtest/gtest.h>

namespace {

// Rows separated by "|", cells by ",".
std::vector<MfxTableRow> Rows(const CString& strRows) {
    std::vector<MfxTableRow> rows(1, MfxTableRow{{CString()}});
    for (int i = 0; i < strRows.GetLength(); ++i) {
        if (strRows[i] == L'|')
            rows.push_back(MfxTableRow{{CString()}});
        else if (strRows[i] == L',')
            rows.back().cells.emplace_back();
        else
            rows.back().cells.back() += strRows[i];
    }
    return rows;
}

}  // namespace

TEST(DraftTableCheckTest, FindsTheFirstFlaw) {
    using enum DraftTableFlaw;
    const struct {
        const wchar_t* pszRows;
        DraftTableFlaw flaw;
        int nRow;
        double expected;
    } cases[] = {
        {L"0.0,25.4,3,3,1.5|25.4,,1,1,", None, 0, 0},
        {L"0,1,3,3,|,,,,|,,,,", None, 0, 0},
        {L",,,,|,,,,", NoBands, 0, 0},
        {L"0,1,3,,|1,2,3,3,", IncompleteRow, 1, 0},
        {L"0,1,3,3,|,,,,|1,2,3,3,", IncompleteRow, 2, 0},
        {L"0,1,0.0000005,3,", IncompleteRow, 1, 0},
        {L"0,1,3,3,0", None, 0, 0},
        {L"0,1,3,3,|0,2,3,3,", IncompleteRow, 2, 0},  // only the first band begins at zero
        {L"0,,3,3,|1,2,3,3,", IncompleteRow, 1, 0},   // only the last band is open
        {L"5,5,3,3,", UpperNotAboveLower, 1, 0},
        {L"5,5.0000005,3,3,", UpperNotAboveLower, 1, 0},
        {L"5,5.00001,3,3,", None, 0, 0},
        {L"0,1,3,3,|1.01,2,3,3,", NotContiguous, 2, 1},
        {L"0,1,3,3,|1.000001,2,3,3,", None, 0, 0},
        {L"0,1000000000,3,3,|2,3,3,3,", NotContiguous, 2, 1e9},
        {L"9,5,3,3,|1,2,3,,", IncompleteRow, 2, 0},  // shapes come before values
    };
    for (const auto& [pszRows, flaw, nRow, expected] : cases) {
        SCOPED_TRACE(pszRows);
        const DraftTableResult result = CheckDraftTable(Rows(pszRows));
        EXPECT_EQ(result.flaw, flaw);
        EXPECT_EQ(result.nRow, nRow);
        EXPECT_EQ(result.expected, expected);
        EXPECT_EQ(result.bands.empty(), flaw != None);
    }
    EXPECT_EQ(CheckDraftTable(Rows(L"0,25.40,.75,3,|25.4,,1,2,")).bands,
              Rows(L"0.0,25.4,0.75,3.0,|25.4,,1.0,2.0,"));
}
