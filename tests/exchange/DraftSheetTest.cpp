#include "DraftSheet.h"

#include <gtest/gtest.h>

namespace {

// Row by row, as people see a sheet; a row that is shorter makes its last columns shorter.
WorkbookTable Columns(const std::vector<std::vector<LPCWSTR>>& rows) {
    WorkbookTable columns(kDraftSheetColumns.size());
    for (const auto& row : rows)
        for (std::size_t cell = 0; cell < row.size(); ++cell) columns[cell].push_back(row[cell]);
    return columns;
}

const std::vector<LPCWSTR> kHeadings{L"H1", L"H2", L"A1", L"A2", L"A3"};

}  // namespace

TEST(DraftSheetTest, TurnsRowsIntoBands) {
    const DraftSheet sheet = ReadDraftSheet(
        Columns({kHeadings, {L"0", L"25.40", L"3", L".5", L""}, {L"25.4", L"", L"1", L"2", L""}}));
    EXPECT_EQ(sheet.fault, DraftSheetFault::None);
    EXPECT_EQ(sheet.table.bands, (std::vector<MfxTableRow>{{{L"0.0", L"25.4", L"3.0", L"0.5", L""}},
                                                           {{L"25.4", L"", L"1.0", L"2.0", L""}}}));
}

TEST(DraftSheetTest, SaysWhyASheetIsRefused) {
    using enum DraftSheetFault;
    const std::vector<LPCWSTR> band{L"0", L"1", L"3", L"3", L"1"};
    WorkbookTable long200 = Columns({kHeadings}), long201;
    for (int i = 0; i < 200; ++i)
        for (auto& column : long200) column.push_back(L"1");
    long201 = long200;
    for (auto& column : long201) column.push_back(L"1");
    const struct {
        WorkbookTable columns;
        DraftSheetFault fault;
        DraftTableFlaw flaw;
        int row;
    } kCases[] = {
        {{}, WrongHeadings, DraftTableFlaw::None, 0},
        {WorkbookTable(5), WrongHeadings, DraftTableFlaw::None, 0},
        {WorkbookTable(4, {L"H1"}), WrongHeadings, DraftTableFlaw::None, 0},
        {Columns({{L"H1", L"H2", L"A1", L"A2", L"a3"}, band}), WrongHeadings, DraftTableFlaw::None, 0},
        {Columns({{L"H1", L"H2", L"A1", L"A3", L"A2"}, band}), WrongHeadings, DraftTableFlaw::None, 0},
        {Columns({kHeadings, {L"0", L"1", L"3", L"3"}}), UnevenColumns, DraftTableFlaw::None, 0},
        {long201, TooManyBands, DraftTableFlaw::None, 0},
        {long200, RefusedTable, DraftTableFlaw::UpperNotAboveLower, 2},
        {Columns({kHeadings}), RefusedTable, DraftTableFlaw::NoBands, 0},
        {Columns({kHeadings, band, {L"1", L"2", L"", L"3", L""}}), RefusedTable, DraftTableFlaw::EmptyCell,
         3},
        {Columns({kHeadings, {L"0", L"1", L".", L"3", L""}}), RefusedTable, DraftTableFlaw::IncompleteRow, 2},
        {Columns({kHeadings, band, {L"1", L"2,5", L"3", L"3", L""}}), NoNumber, DraftTableFlaw::None, 0},
    };
    for (const auto& [columns, fault, flaw, row] : kCases) {
        SCOPED_TRACE(testing::PrintToString(flaw) + " in row " + std::to_string(row));
        const DraftSheet sheet = ReadDraftSheet(columns);
        EXPECT_EQ(sheet.fault, fault);
        EXPECT_EQ(sheet.table.flaw, flaw);
        EXPECT_EQ(sheet.table.nRow, row);
        EXPECT_TRUE(sheet.table.bands.empty());
    }
}

TEST(DraftSheetTest, NamesTheCellThatIsNoNumber) {
    const DraftSheet sheet = ReadDraftSheet(
        Columns({kHeadings, {L"0", L"1", L"3", L"3", L""}, {L"1", L"2", L"3", L"3", L"none"}}));
    EXPECT_STREQ(sheet.strCell, L"E3");
    EXPECT_STREQ(sheet.strText, L"none");
}
