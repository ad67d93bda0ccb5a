#include "WorkbookImport.h"
#include "XlsxReader.h"
#include "automation/AutomationServer.h"
#include "module/ModuleTestSupport.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace fs = std::filesystem;
using namespace testing;

namespace {

struct LibraryTest : Test {
    bool Read(const std::wstring& path, const WorkbookColumns& columns = {L"A", L"B", L"C", L"E"}) {
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
    const std::pair<std::string, std::vector<std::string>> kCases[] = {
        {"draft-angles", {"draft-angles"}},
        {"cell-types",
         {"cell-types", "../tests/sheetreader/workbooks/openpyxl-cell-types",
          "../tests/sheetreader/workbooks/streamed-zip64",
          "../tests/sheetreader/workbooks/upper-case-stored"}},
        {"second-sheet-active", {"second-sheet-active"}},
        {"empty-first-cell", {"empty-first-cell"}},
    };
    for (const auto& [xls, books] : kCases) {
        ASSERT_TRUE(Read(Sample(xls + ".xls")));
        const WorkbookTable expected = m_table;
        for (const std::string& book : books) {
            SCOPED_TRACE(book);
            const std::wstring path = m_folder.Path(L"抜き 勾配 é.xlsx");
            fs::copy_file(Sample(book + ".xlsx"), path, fs::copy_options::overwrite_existing);
            EXPECT_TRUE(Read(path));
            EXPECT_EQ(m_table, expected);
            EXPECT_STREQ(m_strError, L"");
            EXPECT_TRUE(fs::remove(path));  // nothing holds it open
        }
    }
}

TEST_F(LibraryTest, SaysInTheUsersLanguageThatItIsNoWorkbook) {
    const std::wstring paths[] = {
        m_folder.Path(L"none.xlsx"),
        m_folder.Path(L"no folder\\none.xlsx"),
        m_folder.Path(std::wstring(300, L'x') + L".xlsx"),
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
