#include "ExcelSheet.h"
#include "WorkbookReader.h"
#include "automation/AutomationServer.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <climits>
#include <clocale>

using namespace testing;

namespace {

constexpr int kEver = INT_MAX;

// As Excel says while its user edits a cell.
constexpr HRESULT kExcelIgnores = static_cast<HRESULT>(0x800AC472);

constexpr char kBands[] = "H1|H2|A1\n0|25|3\n25|50.5|1.5\n";

struct ExcelImportTest : Test {
    // With COM on until the end, nobody else releases what the import forgets.
    ExcelImportTest() { CoInitialize(nullptr); }
    ~ExcelImportTest() override { CoUninitialize(); }

    WorkbookFault Read(const std::string& cells, const WorkbookColumns& columns) {
        m_folder.Write(L"抜き 勾配 é.xls", cells);
        return ReadWorkbook(m_book.c_str(), columns, m_table, m_readerError);
    }

    // Whether the workbook was read from, closed, and Excel told to end.
    std::string TakeEnd() {
        std::string end;
        for (const std::wstring& call : m_server.TakeCalls())
            if (call == L"ActiveSheet" || call == L"Close" || call == L"Quit") end += Utf8(call);
        return end;
    }

    const TempFolder m_folder;
    const std::wstring m_book = m_folder.Path(L"抜き 勾配 é.xls");
    AutomationServer m_server;
    WorkbookTable m_table{{L"left over"}};
    CString m_readerError;
};

}  // namespace

TEST(ExcelSheetTest, ShowsNumbersAndTextsAndNothingElse) {
    ASSERT_TRUE(setlocale(LC_ALL, "French_France"));
    ASSERT_STREQ(localeconv()->decimal_point, ",");
    const std::pair<_variant_t, LPCWSTR> kCases[] = {{short{-7}, L"-7"},
                                                     {-7L, L"-7"},
                                                     {0.5f, L"0.5"},
                                                     {-1e-7, L"-0"},
                                                     {1e20, L"100000000000000000000"},
                                                     {1.0000005, L"1.000001"},
                                                     {L"2,50", L"2,50"},
                                                     {5LL, L""},
                                                     {true, L""},
                                                     {CY{{125000, 0}}, L""},
                                                     {_variant_t(45351.0, VT_DATE), L""},
                                                     {_variant_t(kExcelError, VT_ERROR), L""}};
    for (const auto& [value, text] : kCases) EXPECT_STREQ(CellText(value), text) << value.vt;
    setlocale(LC_ALL, "C");
}

TEST_F(ExcelImportTest, PassesArgumentsInOrderAndLeavesThemToTheCaller) {
    CLSID classId;
    Microsoft::WRL::ComPtr<IDispatch> words;
    EXPECT_HRESULT_SUCCEEDED(CLSIDFromProgID(L"Scripting.Dictionary", &classId));
    EXPECT_HRESULT_SUCCEEDED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&words)));
    const Variant key(L"key"), item(L"item");
    const VARIANT plainKey = key, plainItem = item;
    Variant found;
    EXPECT_EQ(AutoInvoke(AutoMethod, nullptr, words.Get(), L"add", 2, plainKey, plainItem), S_OK);
    EXPECT_EQ(AutoInvoke(AutoPropertyGet, &found, words.Get(), L"Item", 1, plainKey), S_OK);
    EXPECT_STREQ(CellText(found), L"item");
    EXPECT_EQ(AutoInvoke(AutoPropertyPut, nullptr, words.Get(), L"Item", 2, plainKey, plainKey), S_OK);
    EXPECT_EQ(AutoInvoke(AutoPropertyGet, &found, words.Get(), L"Item", 1, plainKey), S_OK);
    EXPECT_STREQ(CellText(found), L"key");
    EXPECT_EQ(AutoInvoke(AutoMethod, nullptr, words.Get(), L"Quit", 0), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(AutoInvoke(AutoMethod, nullptr, nullptr, L"Quit", 0), E_POINTER);
}

TEST_F(ExcelImportTest, ReadsAsManyRowsOfEachColumnAsColumnAHas) {
    const struct {
        std::string cells;
        WorkbookColumns columns;
        WorkbookTable table;
    } kCases[] = {
        {kBands,
         {L"A", L"C", L"B", L"AA", L"Z"},  // the sheet ends before AA
         {{L"H1", L"0", L"25"}, {L"A1", L"3", L"1.5"}, {L"H2", L"25", L"50.5"}, {}, {L"", L"", L""}}},
        {"抜き勾配|Angle de dépouille\n-7\n|behind the end\n",
         {L"A", L"B"},
         {{L"抜き勾配", L"-7"}, {L"Angle de dépouille", L""}}},
        {"|right\nbelow\n", {L"A", L"B"}, {{}, {}}},
    };
    for (const auto& [cells, columns, table] : kCases) {
        SCOPED_TRACE(cells);
        EXPECT_EQ(Read(cells, columns), WorkbookFault::None);
        EXPECT_EQ(m_table, table);
    }
}

TEST_F(ExcelImportTest, AsksForEachCellOnceAndForEachNameOnce) {
    EXPECT_EQ(Read("H1|H2\n0|25\n", {L"A", L"B"}), WorkbookFault::None);
    EXPECT_THAT(m_server.TakeCalls(),
                ElementsAre(L"Create", L"id DisplayAlerts", L"DisplayAlerts 0", L"id AutomationSecurity",
                            L"AutomationSecurity 3", L"id Workbooks", L"Workbooks", L"id Open",
                            L"Open " + m_book, L"id ActiveSheet", L"ActiveSheet", L"id Range", L"Range A1",
                            L"id value", L"value", L"Range A2", L"value", L"Range A3", L"value", L"Range B1",
                            L"value", L"Range B2", L"value", L"id Close", L"Close", L"id Quit", L"Quit"));
}

TEST_F(ExcelImportTest, TriesAgainForSomeSecondsWhileExcelIsBusy) {
    const std::pair<std::wstring, HRESULT> kCases[] = {{L"id", RPC_E_CALL_REJECTED},
                                                       {L"Open", RPC_E_SERVERCALL_RETRYLATER},
                                                       {L"Range", RPC_E_CALL_REJECTED},
                                                       {L"Range", kExcelIgnores},
                                                       {L"value", RPC_E_SERVERCALL_RETRYLATER}};
    for (const auto& [member, busy] : kCases) {
        SCOPED_TRACE(Utf8(member) + " " + std::to_string(busy));
        m_server.FailAt(member, 1, busy, 3);
        EXPECT_EQ(Read(kBands, {L"A"}), WorkbookFault::None);
        EXPECT_EQ(m_table, (WorkbookTable{{L"H1", L"0", L"25"}}));
    }
}

TEST_F(ExcelImportTest, EndsInOrderWhateverFails) {
    constexpr HRESULT kDead = HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
    using enum WorkbookFault;
    const struct {
        std::wstring member;
        int call;
        int times;
        HRESULT result;
        WorkbookFault fault;
        std::string end;
    } kCases[] = {
        {L"Create", 1, 1, kExcelError, ExcelNotStarted, ""},
        {L"DisplayAlerts", 1, 1, kExcelError, NotOpened, "Quit"},
        {L"AutomationSecurity", 1, 1, kExcelError, NotOpened, "Quit"},
        {L"Workbooks", 1, 1, kExcelError, NotOpened, "Quit"},
        {L"Open", 1, 1, kExcelError, NotOpened, "Quit"},
        {L"Open", 1, kEver, kDead, NotOpened, ""},
        {L"ActiveSheet", 1, 1, kExcelError, NotOpened, "ActiveSheetCloseQuit"},
        // Neither Close nor Quit.
        {L"value", 6, 1, kExcelError, CellUnreadable, "ActiveSheet"},
        {L"Range", 3, kEver, RPC_E_SERVERCALL_RETRYLATER, CellUnreadable, "ActiveSheet"},
        {L"Range", 6, kEver, kDead, CellUnreadable, "ActiveSheet"},
        {L"Range", 3, 1, RPC_E_SERVERFAULT, CellUnreadable, "ActiveSheet"},
        {L"Range", 3, 1, E_OUTOFMEMORY, CellUnreadable, "ActiveSheet"},
        {L"Close", 1, 1, kExcelError, None, "ActiveSheetCloseQuit"},
        {L"Quit", 1, 1, kExcelError, ExcelNotQuit, "ActiveSheetCloseQuit"},
        // Taken for the end of the sheet.
        {L"Range", 3, 1, DISP_E_EXCEPTION, None, "ActiveSheetCloseQuit"},
        {L"Range", 3, 1, kExcelError, None, "ActiveSheetCloseQuit"},
    };
    for (const auto& [member, call, times, result, fault, end] : kCases) {
        SCOPED_TRACE(Utf8(member) + " " + std::to_string(call) + " " + std::to_string(result));
        m_server.FailAt(member, call, result, times);
        EXPECT_EQ(Read(kBands, {L"A", L"B"}), fault);
        EXPECT_EQ(TakeEnd(), end);
        EXPECT_EQ(m_server.ObjectsInUse(), 0);
    }
    EXPECT_EQ(m_table, (WorkbookTable{{L"H1", L"0"}, {L"H2", L"25"}}));
    m_server.Unregister();
    EXPECT_EQ(Read(kBands, {L"A"}), ExcelNotInstalled);
}

TEST_F(ExcelImportTest, LeavesTheThreadsComAsItWas) {
    APTTYPE type;
    APTTYPEQUALIFIER qualifier;
    CoUninitialize();
    EXPECT_EQ(Read(kBands, {L"A"}), WorkbookFault::None);
    EXPECT_EQ(CoGetApartmentType(&type, &qualifier), CO_E_NOTINITIALIZED);
    ASSERT_HRESULT_SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    EXPECT_EQ(Read(kBands, {L"A"}), WorkbookFault::None);
    EXPECT_HRESULT_SUCCEEDED(CoGetApartmentType(&type, &qualifier));
    EXPECT_EQ(type, APTTYPE_MTA);
}
