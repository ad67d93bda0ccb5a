#include "ExcelSheet.h"
#include "WorkbookImport.h"
#include "WorkbookMaker.h"
#include "XlsxColumns.h"
#include "XlsxReader.h"
#include "automation/AutomationServer.h"
#include "module/ModuleTestSupport.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <random>

namespace fs = std::filesystem;
using namespace testing;

namespace {

struct LibraryTest : Test {
    bool Read(const std::wstring& path, const WorkbookColumns& columns) {
        return ReadWorkbookTable(path.c_str(), columns, m_table, m_strError);
    }

    // As an import does, which only asks for files that there are.
    bool ReadByExport(const std::wstring& path) {
        const HMODULE hLibrary = LoadLibraryW(kXlsxReaderLibrary);
        auto* const pRead = reinterpret_cast<ReadXlsxFunction*>(
            reinterpret_cast<void (*)()>(GetProcAddress(hLibrary, kXlsxReaderExport)));
        m_table.clear();
        const bool bRead = pRead(path, {L"A"}, m_table, m_strError);
        FreeLibrary(hLibrary);
        return bRead;
    }

    const StartedApp m_app{L"korean"};
    const TempFolder m_folder;
    WorkbookTable m_table{{L"left over"}};
    CString m_strError = L"left over";
};

std::wstring Sample(const std::string& name) {
    return fs::path(MFX_SAMPLES + name).make_preferred();
}

}  // namespace

TEST_F(LibraryTest, GivesTheSameTableAsAutomation) {
    const AutomationServer server;
    const std::string folder = "../tests/sheetreader/workbooks/";
    const struct {
        std::string xls;
        WorkbookColumns columns;
        std::vector<std::string> books;
    } kCases[] = {
        {"draft-angles", {L"A", L"B", L"C", L"D", L"E", L"F"}, {"draft-angles"}},
        {"cell-types",
         {L"A", L"B", L"C", L"E"},
         {"cell-types", folder + "openpyxl-cell-types", folder + "streamed-zip64",
          folder + "upper-case-stored"}},
        {"cell-types", {L"A", L"B"}, {folder + "calc-cell-types"}},  // Calc makes a number of =1>2 in C
        {"second-sheet-active", {L"A"}, {"second-sheet-active", folder + "calc-second-sheet-active"}},
        {"empty-first-cell", {L"A", L"B"}, {"empty-first-cell"}},
    };
    for (const auto& [xls, columns, books] : kCases) {
        ASSERT_TRUE(Read(Sample(xls + ".xls"), columns));
        const WorkbookTable expected = m_table;
        for (const std::string& book : books) {
            SCOPED_TRACE(book);
            const std::wstring path = m_folder.Path(L"抜き 勾配 é.xlsx");
            fs::copy_file(Sample(book + ".xlsx"), path, fs::copy_options::overwrite_existing);
            EXPECT_TRUE(Read(path, columns));
            EXPECT_TRUE(m_table == expected);
            EXPECT_STREQ(m_strError, L"");
            EXPECT_TRUE(fs::remove(path));  // nothing holds it open
        }
    }
}

TEST_F(LibraryTest, RoundsAsAutomationDoes) {
    std::vector<double> numbers{0,   0.5e-6, 1.5e-6,     2.5e-6,         -4e-7,      0.9999995, 1 / 3.0,
                                1e6, 1e12,   1e12 + 0.5, 123456.1234565, 1e15 + 0.3, -1e300,    5e-324};
    std::mt19937_64 random(1);
    for (int i = 0; i < 2000; ++i) numbers.push_back(static_cast<double>(random() % 4'000'000'000) / 2e6);
    for (int i = 0; i < 2000; ++i) numbers.push_back(std::ldexp(static_cast<double>(random()), -i % 90));
    std::string rows;
    for (const double number : numbers) {
        char text[40];
        std::snprintf(text, sizeof text, "%.17g", number);
        rows.append("<row><c><v>").append(text).append("</v></c></row>");
    }
    const std::string bytes = MakeZip(MakeParts(rows));
    const auto texts = XlsxColumns(OpenBytes(bytes), {L"A"}).Texts<CString, int>(0);
    ASSERT_EQ(texts.size(), numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        VARIANT value{};
        value.vt = VT_R8;
        value.dblVal = numbers[i];
        EXPECT_STREQ(texts[i], CellText(value)) << numbers[i];
    }
}

TEST_F(LibraryTest, SaysInTheUsersLanguageThatItIsNoWorkbook) {
    // One that is there, but too long for Excel.
    const std::wstring longPath =
        m_folder.Path(std::wstring(MAX_PATH - m_folder.Path().size() - 6, L'x') + L".xlsx");
    fs::copy_file(Sample("draft-angles.xlsx"), LR"(\\?\)" + longPath);
    const std::wstring paths[] = {
        m_folder.Path(L"none.xlsx"),
        m_folder.Path(L"no folder\\none.xlsx"),
        longPath,
        LR"(\\?\)" + longPath,
        m_folder.Path(),
        L"",
        L"\\\\no-such-server\\share\\none.xlsx",
        L"\\\\?\\Z:\\none.xlsx",
        L"Z:\\a<b>|?*.xlsx",
        Sample("draft-angles.xls"),
        Sample("all-rules.xml"),
        m_folder.Write(L"empty.xlsx", ""),
        m_folder.Write(L"directory.xlsx", std::string("PK\5\6", 4) + std::string(18, '\0')),
    };
    for (const std::wstring& path : paths) {
        SCOPED_TRACE(Utf8(path));
        EXPECT_FALSE(ReadByExport(path));
        EXPECT_TRUE(m_table.empty());
        EXPECT_EQ(m_strError, m_app.Text(IDS_WORKBOOK_NOT_OPENED).c_str());
    }
}
