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
    // With COM on until the end, nobody else releases what the import forgets.
    ExcelImportTest() { CoInitialize(nullptr); }
    ~ExcelImportTest() override { CoUninitialize(); }

    // Reads a sample as a file with blanks and Japanese letters in its path.
    bool Read(const std::string& sample, const WorkbookColumns& columns) {
        fs::copy_file(MFX_SAMPLES + sample, m_book, fs::copy_options::overwrite_existing);
        return ReadWorkbookTable(m_book.c_str(), columns, m_table, m_strError);
    }

    bool ReadBands() { return Read("draft-angles.xls", {L"A", L"B"}); }

    // A line per column, long texts cut.
    std::string Table() const {
        std::string text;
        for (const auto& cells : m_table) {
            for (const CString& strCell : cells) text += Utf8(strCell.Left(18).GetString()) + "|";
            text += "\n";
        }
        return text;
    }

    // The calls after the workbook was opened, of what the server noted, which ends without a reference to
    // its objects.
    static std::string EndOf(const std::vector<std::string>& journal, bool bDied = false) {
        EXPECT_TRUE(bDied || (!journal.empty() && journal.back() == "objects 0")) << PrintToString(journal);
        std::string end;
        for (const std::string& line : journal)
            if (line == "ActiveSheet" || line == "Close" || line == "Quit") end += line;
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
    } kCases[] = {{VT_I2, -7, L"-7"},
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
                  {VT_EMPTY, 0, L""}};
    for (const auto& [type, number, pszText] : kCases) {
        Variant value;
        value.vt = VT_R8, value.dblVal = number;
        ASSERT_HRESULT_SUCCEEDED(VariantChangeTypeEx(&value, &value, 0x40c, 0, type));
        EXPECT_STREQ(CellText(value), pszText) << type;
    }
}

TEST_F(ExcelImportTest, PassesArgumentsInOrderAndLeavesThemToTheCaller) {
    CLSID classId;
    ASSERT_HRESULT_SUCCEEDED(CLSIDFromProgID(L"Scripting.Dictionary", &classId));
    Microsoft::WRL::ComPtr<IDispatch> pWords;
    ASSERT_HRESULT_SUCCEEDED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&pWords)));
    const Variant key(L"key"), item(L"item");
    const VARIANT plainKey = key, plainItem = item;
    Variant found;
    EXPECT_EQ(AutoInvoke(AutoMethod, nullptr, pWords.Get(), L"add", 2, plainKey, plainItem), S_OK);
    EXPECT_EQ(AutoInvoke(AutoPropertyGet, &found, pWords.Get(), L"Item", 1, plainKey), S_OK);
    EXPECT_STREQ(CellText(found), L"item");
    EXPECT_EQ(AutoInvoke(AutoMethod, nullptr, pWords.Get(), L"Quit", 0), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(AutoInvoke(AutoMethod, nullptr, nullptr, L"Quit", 0), E_POINTER);
}

TEST_F(ExcelImportTest, ReadsTheColumnsOfTheActiveSheet) {
    const struct {
        std::string sample;
        WorkbookColumns columns;
        std::string table;
    } kCases[] = {
        {"draft-angles.xls",
         {L"A", L"E", L"C", L"ZZ", L"Z"},
         "H1|0|25|50|101.6|\nA3|1.5|1|1|1|\nA1|3|1.5|1|0.75|\n\n|||||\n"},
        {"cell-types.xls",
         {L"A", L"B", L"C"},
         "Integer|Decimal|Date|Currency|Percent|Boolean|Error|Formula|Text|Empty|Long|\n"
         "42|0.125|||0.25|||84|抜き勾配||xxxxxxxxxxxxxxxxxx|\n"
         "-7|12345.678||||||x42|Angle de dépouille|1|抜抜抜抜抜抜抜抜抜抜抜抜抜抜抜抜抜抜|\n"},
        {"second-sheet-active.xls", {L"A"}, "second|\n"},
        {"empty-first-cell.xls", {L"A", L"B"}, "\n\n"},
    };
    for (const auto& [sample, columns, table] : kCases) {
        SCOPED_TRACE(sample);
        EXPECT_TRUE(Read(sample, columns));
        EXPECT_EQ(Table(), table);
        EXPECT_STREQ(m_strError, L"");
        EXPECT_EQ(EndOf(m_server.Journal()), "ActiveSheetCloseQuit");
    }
}

// Or the tests here could not tell a leak.
TEST_F(ExcelImportTest, StandInTellsWhatItsClientKept) {
    CLSID classId;
    Microsoft::WRL::ComPtr<IDispatch> pExcel;
    ASSERT_HRESULT_SUCCEEDED(CLSIDFromProgID(L"Excel.Application", &classId));
    ASSERT_HRESULT_SUCCEEDED(CoCreateInstance(classId, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&pExcel)));
    EXPECT_THAT(m_server.Journal(), ElementsAre("Create", "objects 1"));
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
        {L"ActiveSheet", 1, false, false, IDS_WORKBOOK_NOT_OPENED, "ActiveSheetCloseQuit"},
        {L"value", 2, false, false, 0, "ActiveSheet"},  // neither Close nor Quit
        {L"value", 7, false, false, 0, "ActiveSheet"},
        {L"Range", 3, false, true, 0, "ActiveSheetCloseQuit"},  // taken for the end of the sheet
        {L"Close", 1, false, true, 0, "ActiveSheetCloseQuit"},
        {L"Quit", 1, false, false, 0, "ActiveSheetCloseQuit"},
        {L"Open", 1, true, false, IDS_WORKBOOK_NOT_OPENED, ""},
        {L"ActiveSheet", 1, true, false, IDS_WORKBOOK_NOT_OPENED, "ActiveSheet"},
        {L"Range", 8, true, false, 0, "ActiveSheet"},
        {L"value", 8, true, false, 0, "ActiveSheet"},
        {L"Quit", 1, true, false, 0, "ActiveSheetCloseQuit"},
    };
    for (const auto& [pszMember, nCall, bDies, bRead, nTextId, end] : kCases) {
        SCOPED_TRACE(Utf8(pszMember) + " " + std::to_string(nCall) + (bDies ? " dies" : " fails"));
        bDies ? m_server.DieAt(pszMember, nCall) : m_server.FailAt(pszMember, nCall);
        EXPECT_EQ(ReadBands(), bRead);
        EXPECT_EQ(m_strError, nTextId ? m_app.Text(nTextId).c_str() : L"");
        EXPECT_EQ(EndOf(m_server.Journal(), bDies), end);
    }
    m_server.FailAt(L"Range", 3);
    EXPECT_TRUE(ReadBands());
    EXPECT_EQ(Table(), "H1|0|\nH2|25|\n");
    m_server.Unregister();
    EXPECT_FALSE(ReadBands());
    EXPECT_STREQ(m_strError, m_app.Text(IDS_EXCEL_NOT_INSTALLED).c_str());
}

TEST_F(ExcelImportTest, LeavesTheThreadsComAsItWas) {
    APTTYPE type;
    APTTYPEQUALIFIER qualifier;
    CoUninitialize();
    EXPECT_TRUE(ReadBands());
    EXPECT_EQ(CoGetApartmentType(&type, &qualifier), CO_E_NOTINITIALIZED);
    ASSERT_HRESULT_SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    EXPECT_TRUE(ReadBands());
    EXPECT_HRESULT_SUCCEEDED(CoGetApartmentType(&type, &qualifier));
    EXPECT_EQ(type, APTTYPE_MTA);
}
