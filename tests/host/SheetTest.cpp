#include "HostTest.h"
#include "automation/AutomationServer.h"

#include <filesystem>
#include <regex>

using namespace testing;

namespace {

struct SheetTest : HostTest {
    SheetTest() {
        m_folder.Write(
            m_book,
            "H1|H2|A1|A2|A3\n0|25|3|3|1.5\n25|50|1.5|2.5|1\n50|101.6|1|1.5|1\n101.6|203.2|0.75|1|1\n");
    }

    const std::wstring m_book = L"抜き 勾配.xls";
    AutomationServer m_excel;
};

}  // namespace

TEST_F(SheetTest, PrintsWhatAnImportReads) {
    Run({L"sheet", m_book}, 0,
        "抜き 勾配.xls: 5 rows of the sheet \"Sheet of Excel\"\n"
        "     A      B      C     D    E\n"
        "  1  H1     H2     A1    A2   A3\n"
        "  2  0      25     3     3    1.5\n"
        "  3  25     50     1.5   2.5  1\n"
        "  4  50     101.6  1     1.5  1\n"
        "  5  101.6  203.2  0.75  1    1\n",
        "");
    const ProcessResult run = Run({L"sheet", L".\\" + m_book, L"--columns", L"a,zz,d", L"--json"});
    EXPECT_EQ(std::regex_replace(run.out, std::regex("\\s"), ""),
              R"({"version":1,"file":".\\抜き勾配.xls","sheet":"SheetofExcel","columns":[)"
              R"({"column":"A","cells":["H1","0","25","50","101.6"]},{"column":"ZZ","cells":[]},)"
              R"({"column":"D","cells":["A2","3","2.5","1.5","1"]}]})");
    // A copy, for its folder gets a file for a moment.
    std::filesystem::copy_file(MFX_SAMPLES "second-sheet-active.xlsx", m_folder.Path(L"s.xlsx"));
    Run({L"sheet", L"s.xlsx", L"--columns", L"A"}, 0,
        "s.xlsx: 1 row of the sheet \"Sheet 1\"\n     A\n  1  second\n", "");
    // As of a server, two backslashes at the start stay two.
    Run({L"sheet", L"\\\\?\\" + m_folder.Path(L"s.xlsx"), L"--columns", L"A"}, 0, HasSubstr("1 row"), "");
    m_folder.Write(L"e.xls", "");
    Run({L"sheet", L"e.xls", L"--columns", L"A"}, 0,
        AllOf(StartsWith("e.xls: 0 rows of the sheet \"Sheet of Excel\": its cell A1 is empty"),
              EndsWith("\n    A\n")),
        "");
    EXPECT_THAT(m_folder.Names(), ElementsAre(L"e.xls", L"s.xlsx", m_book));
}

TEST_F(SheetTest, TellsWhyAWorkbookCannotBeRead) {
    const auto reason = [](const std::string& file, const std::string& text) {
        return "mfxhost: " + file + ": " + text + "\n";
    };
    Run({L"sheet", L"none.xls"}, 3, "", reason("none.xls", "The workbook was not found."));
    Run({L"sheet", L"none\\b.xlsx", L"--lang", L"french"}, 3, "",
        reason("none\\b.xlsx", "Le classeur est introuvable."));
    Run({L"sheet", L"."}, 3, "", reason(".", "can't be read: it is a folder"));
    const HANDLE held =
        CreateFileW(m_folder.Path(m_book).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    Run({L"sheet", m_book}, 3, "", reason("抜き 勾配.xls", "The workbook could not be opened."));
    CloseHandle(held);
    m_folder.Write(L"text.xlsx", "no workbook");
    Run({L"sheet", L"text.xlsx"}, 3, "", reason("text.xlsx", "it is no workbook (.xlsx, .xls)"));
    m_folder.Write(L"cut.xlsx", "PK\x03\x04");
    Run({L"sheet", L"cut.xlsx"}, 3, "", reason("cut.xlsx", "The workbook could not be opened."));
    m_excel.FailAt(L"value", 8);
    Run({L"sheet", m_book}, 3, "", HasSubstr("a cell can't be read"));
    m_excel.FailAt(L"Quit");
    Run({L"sheet", m_book}, 3, "", HasSubstr("Excel does not end"));
    m_excel.FailAt(L"Create");
    Run({L"sheet", m_book, L"--lang", L"korean"}, 4, "", HasSubstr("Excel을 시작할 수 없습니다."));
    m_excel.Unregister();
    Run({L"sheet", m_book}, 3, "", reason("抜き 勾配.xls", "it is no workbook (.xlsx, .xls)"));
    std::filesystem::copy_file(MFX_SAMPLES "draft-angles.xls", m_folder.Path(L"angles.xls"));
    Run({L"sheet", L"angles.xls"}, 4, "", reason("angles.xls", "Excel is not installed on this computer."));
    std::wstring very = L"A";
    for (int i = 0; i < 5000; ++i) very += L",B";
    for (const std::wstring& columns :
         std::vector<std::wstring>{L"B", L"", L"A,", L"A;B", L"A,B1", L"A,ABCD", L"A,é", very + L"1"})
        Run({L"sheet", m_book, L"--columns", columns}, 2, "", HasSubstr("--columns"));
}
