#include "XlsxReader.h"
#include "module/ModuleTestSupport.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace fs = std::filesystem;
using namespace testing;

namespace {

struct ExportsTest : Test {
    bool Read(const std::wstring& path, const WorkbookColumns& columns) {
        const HMODULE hLibrary = LoadLibraryW(kXlsxReaderLibrary);
        auto* const pRead = reinterpret_cast<ReadXlsxFunction*>(
            reinterpret_cast<void (*)()>(GetProcAddress(hLibrary, kXlsxReaderExport)));
        m_table.clear();
        const bool bRead = pRead(path, columns, m_table, m_strError);
        FreeLibrary(hLibrary);
        return bRead;
    }

    const StartedApp m_app{L"korean"};
    const TempFolder m_folder;
    WorkbookTable m_table;
    CString m_strError;
};

}  // namespace

TEST_F(ExportsTest, ReadsWorkbooksOfAllWriters) {
    const WorkbookTable expected = {
        {L"Integer", L"Decimal", L"Date", L"Currency", L"Percent", L"Boolean", L"Error", L"Formula", L"Text",
         L"Empty", L"Long"},
        {L"42", L"0.125", L"", L"", L"0.25", L"", L"", L"84", L"抜き勾配", L"",
         std::wstring(6000, L'x').c_str()},
        {L"-7", L"12345.678", L"", L"", L"", L"", L"", L"x42", L"Angle de dépouille", L"1",
         std::wstring(3000, L'抜').c_str()},
    };
    const std::pair<std::string, WorkbookColumns> kBooks[] = {
        {MFX_SAMPLES "cell-types.xlsx", {L"A", L"B", L"C"}},
        {MFX_WORKBOOKS "openpyxl-cell-types.xlsx", {L"A", L"B", L"C"}},
        {MFX_WORKBOOKS "streamed-zip64.xlsx", {L"A", L"B", L"C"}},
        {MFX_WORKBOOKS "upper-case-stored.xlsx", {L"A", L"B", L"C"}},
        {MFX_WORKBOOKS "calc-cell-types.xlsx", {L"A", L"B"}},  // column C has a number for a logical value
    };
    for (const auto& [book, columns] : kBooks) {
        SCOPED_TRACE(book);
        const std::wstring path = m_folder.Path(L"抜き 勾配 é.xlsx");
        fs::copy_file(Wide(book), path);
        EXPECT_TRUE(Read(path, columns));
        EXPECT_TRUE(m_table == WorkbookTable(expected.begin(), expected.begin() + std::ssize(columns)));
        EXPECT_TRUE(fs::remove(path));  // nothing holds it open
    }
}

TEST_F(ExportsTest, SaysInTheUsersLanguageThatItIsNoWorkbook) {
    // A workbook whose path is too long for Excel.
    const std::wstring longPath =
        m_folder.Path(std::wstring(MAX_PATH - m_folder.Path().size() - 6, L'x') + L".xlsx");
    fs::copy_file(Wide(MFX_SAMPLES "draft-angles.xlsx"), LR"(\\?\)" + longPath);
    const std::wstring paths[] = {
        m_folder.Path(L"none.xlsx"),          longPath, LR"(\\?\)" + longPath, m_folder.Path(),
        Wide(MFX_SAMPLES "draft-angles.xls"),
    };
    for (const std::wstring& path : paths) {
        SCOPED_TRACE(Utf8(path));
        EXPECT_FALSE(Read(path, {L"A"}));
        EXPECT_THAT(m_table, IsEmpty());
        EXPECT_EQ(m_strError, m_app.Text(IDS_WORKBOOK_NOT_OPENED).c_str());
    }
}
