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

// What the table check says of a sheet, and too many rows, are seen in the dialog of draft angles.
TEST(DraftSheetTest, RefusesOtherSheets) {
    using enum DraftSheetFault;
    const std::vector<LPCWSTR> band{L"0", L"1", L"3", L"3", L"1"};
    const std::pair<WorkbookTable, DraftSheetFault> kCases[] = {
        {{}, WrongHeadings},
        {WorkbookTable(5), WrongHeadings},
        {WorkbookTable(4, {L"H1"}), WrongHeadings},
        {Columns({{L"H1", L"H2", L"A1", L"A2", L"a3"}, band}), WrongHeadings},
        {Columns({{L"H1", L"H2", L"A1", L"A3", L"A2"}, band}), WrongHeadings},
        {Columns({kHeadings, {L"0", L"1", L"3", L"3"}}), UnevenColumns},
        {Columns({kHeadings, {L"0", L"1", L".", L"3", L""}}), RefusedTable},
    };
    for (const auto& [columns, fault] : kCases) {
        SCOPED_TRACE(testing::PrintToString(columns));
        const DraftSheet sheet = ReadDraftSheet(columns);
        EXPECT_EQ(sheet.fault, fault);
        EXPECT_TRUE(sheet.table.bands.empty());
    }
    std::vector<std::vector<LPCWSTR>> rows(201, band);
    rows[0] = kHeadings;
    EXPECT_EQ(ReadDraftSheet(Columns(rows)).table.nRow, 3) << "200 bands are not too many";
    const DraftSheet sheet = ReadDraftSheet(Columns({kHeadings, band, {L"1", L"2", L"3", L"3", L"none"}}));
    EXPECT_EQ(sheet.fault, NoNumber);
    EXPECT_STREQ(sheet.strCell, L"E3");
    EXPECT_STREQ(sheet.strText, L"none");
}
