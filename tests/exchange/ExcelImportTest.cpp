#include "ExcelSheet.h"
#include "WorkbookImport.h"
#include "automation/AutomationServer.h"
#include "module/ModuleTestSupport.h"
#include "resource.h"
#include "support/Process.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <clocale>
#include <filesystem>

namespace fs = std::filesystem;
using namespace testing;

namespace {

struct ExcelImportTest : Test {
    // Reads a sample as a file with blanks and Japanese letters in its path.
    bool Read(const std::string& sample, const WorkbookColumns& columns) {
        fs::copy_file(MFX_SAMPLES + sample, m_book, fs::copy_options::overwrite_existing);
        return ReadWorkbookTable(m_book.c_str(), columns, m_table, m_strError);
    }

    bool ReadBands() { return Read("draft-angles.xls", {L"A", L"B"}); }

    // The calls that end the work, of what the server noted, which ends without a reference to its objects.
    std::string EndOf(const std::vector<std::string>& journal) {
        EXPECT_EQ(journal.back(), "objects 0");
        std::string end;
        for (const std::string& line : journal)
            if (line == "Close" || line == "Quit") end += line;
        return end;
    }

    const StartedApp m_app{L"japanese"};
    const TempFolder m_folder;
    const std::wstring m_book = m_folder.Path(L"抜き 勾配 é.xls");
    AutomationServer m_server;
    WorkbookTable m_table{{L"left over"}};
    CString m_strError = L"left over";
};

}  // namespace

TEST(ExcelSheetTest, ShowsNumbersAndTextsAndNothingElse) {
    ASSERT_TRUE(setlocale(LC_ALL, "French_France") && *localeconv()->decimal_point == ',');
    const struct {
        VARTYPE type;
        double number;
        LPCWSTR pszText;
    } kCases[] = {
        {VT_I2, -7, L"-7"},
        {VT_I4, 100000, L"100000"},
        {VT_R4, 0.5, L"0.5"},
        {VT_R8, 10, L"10"},
        {VT_R8, 0.125, L"0.125"},
        {VT_R8, 0, L"0"},
        {VT_R8, -1e-7, L"-0"},
        {VT_R8, 1e20, L"100000000000000000000"},
        {VT_R8, 1.0000005, L"1.000001"},
        {VT_BSTR, 2.50, L"2,5"},
        {VT_CY, 12.5, L""},
        {VT_DATE, 45351, L""},
        {VT_BOOL, 1, L""},
        {VT_I8, 5, L""},
        {VT_EMPTY, 0, L""},
    };
    for (const auto& [type, number, pszText] : kCases) {
        Variant value;
        value.vt = VT_R8, value.dblVal = number;
        ASSERT_HRESULT_SUCCEEDED(VariantChangeTypeEx(&value, &value, 0x40c, 0, type));
        EXPECT_STREQ(CellText(value), pszText) << type;
    }
}

TEST_F(ExcelImportTest, ReadsTheColumnsOfTheActiveSheet) {
    const struct {
        std::string sample;
        WorkbookColumns columns;
        WorkbookTable table;
    } kCases[] = {
        {"draft-angles.xls",
         {L"A", L"E", L"C", L"ZZ", L"Z"},
         {{L"H1", L"0", L"25", L"50", L"101.6"},
          {L"A3", L"1.5", L"1", L"1", L"1"},
          {L"A1", L"3", L"1.5", L"1", L"0.75"},
          {},
          {L"", L"", L"", L"", L""}}},
        {"cell-types.xls",
         {L"A", L"B", L"C"},
         {{L"Integer", L"Decimal", L"Date", L"Currency", L"Percent", L"Boolean", L"Error", L"Formula",
           L"Text", L"Empty"},
          {L"42", L"0.125", L"", L"", L"0.25", L"", L"", L"84", L"抜き勾配", L""},
          {L"-7", L"12345.678", L"", L"", L"", L"", L"", L"x42", L"Angle de dépouille", L"1"}}},
        {"second-sheet-active.xls", {L"A"}, {{L"second"}}},
        {"empty-first-cell.xls", {L"A", L"B"}, {{}, {}}},
    };
    for (const auto& [sample, columns, table] : kCases) {
        SCOPED_TRACE(sample);
        EXPECT_TRUE(Read(sample, columns));
        EXPECT_EQ(m_table, table);
        EXPECT_STREQ(m_strError, L"");
        EXPECT_EQ(EndOf(m_server.Journal()), "CloseQuit");
    }
}

TEST_F(ExcelImportTest, AsksForEachCellOnceAndForEachNameOnce) {
    EXPECT_TRUE(ReadBands());
    const std::vector<std::string> journal = m_server.Journal();
    const auto count = [&](const char* start) {
        return std::count_if(journal.begin(), journal.end(),
                             [&](const std::string& line) { return line.starts_with(start); });
    };
    EXPECT_EQ(count("Range "), 6 + 5);  // five rows, and the empty cell that ends column A
    EXPECT_EQ(count("value"), 6 + 5);
    EXPECT_EQ(count("id "), 7);  // Workbooks, Open, ActiveSheet, Range, value, Close, Quit
    EXPECT_THAT(journal, Contains("Open " + Utf8(m_book)));
}

// The n-th call of a member fails, or ends the server.
TEST_F(ExcelImportTest, EndsInOrderWhateverFails) {
    const struct {
        LPCWSTR pszMember;
        int nCall;
        bool bDies, bRead;
        UINT nTextId;
        std::string end;
    } kCases[] = {
        {L"Create", 1, false, false, IDS_EXCEL_NOT_STARTED, ""},
        {L"Workbooks", 1, false, false, IDS_WORKBOOK_NOT_OPENED, "Quit"},
        {L"Open", 1, false, false, IDS_WORKBOOK_NOT_OPENED, "Quit"},
        {L"ActiveSheet", 1, false, false, IDS_WORKBOOK_NOT_OPENED, "CloseQuit"},
        {L"value", 2, false, false, 0, ""},  // Excel is left running, for the user to look
        {L"value", 7, false, false, 0, ""},
        {L"Range", 3, false, true, 0, "CloseQuit"},  // taken for the end of the sheet
        {L"Close", 1, false, true, 0, "CloseQuit"},
        {L"Quit", 1, false, false, 0, "CloseQuit"},
        {L"Open", 1, true, false, IDS_WORKBOOK_NOT_OPENED, ""},
        {L"ActiveSheet", 1, true, false, IDS_WORKBOOK_NOT_OPENED, ""},
        {L"Range", 8, true, false, 0, ""},
        {L"value", 8, true, false, 0, ""},
        {L"Quit", 1, true, false, 0, "Quit"},
    };
    for (const auto& [pszMember, nCall, bDies, bRead, nTextId, end] : kCases) {
        SCOPED_TRACE(Utf8(pszMember) + " " + std::to_string(nCall) + (bDies ? " dies" : " fails"));
        bDies ? m_server.DieAt(pszMember, nCall) : m_server.FailAt(pszMember, nCall);
        EXPECT_EQ(ReadBands(), bRead);
        EXPECT_EQ(m_strError, nTextId ? m_app.Text(nTextId).c_str() : L"");
        if (!bDies) EXPECT_EQ(EndOf(m_server.Journal()), end);
    }
    m_server.FailAt(L"Range", 3);
    EXPECT_TRUE(ReadBands());
    EXPECT_EQ(m_table, (WorkbookTable{{L"H1", L"0"}, {L"H2", L"25"}}));
    m_server.Unregister();
    EXPECT_FALSE(ReadBands());
    EXPECT_STREQ(m_strError, m_app.Text(IDS_EXCEL_NOT_INSTALLED).c_str());
}

TEST_F(ExcelImportTest, LeavesTheThreadsComAsItWas) {
    APTTYPE type;
    APTTYPEQUALIFIER qualifier;
    EXPECT_TRUE(ReadBands());
    EXPECT_EQ(CoGetApartmentType(&type, &qualifier), CO_E_NOTINITIALIZED);
    ASSERT_HRESULT_SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    EXPECT_TRUE(ReadBands());
    EXPECT_HRESULT_SUCCEEDED(CoGetApartmentType(&type, &qualifier));
    EXPECT_EQ(type, APTTYPE_MTA);
    CoUninitialize();
}
