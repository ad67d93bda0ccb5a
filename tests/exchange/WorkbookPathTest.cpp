#include "WorkbookImport.h"
#include "module/ModuleTestSupport.h"
#include "resource.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <optional>

namespace fs = std::filesystem;

TEST(WorkbookPathTest, TakesThePartBeforeTheLastBackslash) {
    const std::pair<LPCWSTR, std::optional<std::wstring>> kCases[] = {
        {L"C:\\a b\\c.xls", L"C:\\a b"}, {L"\\\\server\\日本\\c.xls", L"\\\\server\\日本"},
        {L"C:\\a\\", L"C:\\a"},          {L"\\c.xls", L""},
        {L"C:/a/c.xls", std::nullopt},   {L"", std::nullopt},
        {nullptr, std::nullopt}};
    for (const auto& [pszPath, folder] : kCases) {
        wchar_t* pszFolder = nullptr;
        EXPECT_EQ(GetFolderOfPath(pszPath, pszFolder), folder.has_value());
        const std::unique_ptr<wchar_t[]> owner(pszFolder);
        EXPECT_STREQ(pszFolder, folder ? folder->c_str() : nullptr);
    }
}

TEST(WorkbookPathTest, ProbesTheFolderAndAcceptsWhatCanBeAWorkbook) {
    const StartedApp app(L"french");
    const TempFolder folder;
    const std::wstring locked = folder.Path(L"locked");
    fs::create_directories(locked + L"\\MFX.log");  // no file of that name can be made
    const std::wstring book = folder.Write(L"日本 語.xls", "");
    folder.Write(L"MFX.log", "lost");
    const struct {
        std::wstring path;
        bool bAccepted;
        UINT nTextId;
    } kCases[] = {{L"", false, IDS_WORKBOOK_NOT_FOUND},
                  {L"b.xls", false, 0},
                  {folder.Path(L"none\\b.xls"), false, IDS_WORKBOOK_NOT_FOUND},
                  {book + L"\\b.xls", false, IDS_WORKBOOK_NOT_FOUND},
                  {folder.Path(L"none.xls"), false, IDS_WORKBOOK_NOT_FOUND},
                  {book, true, 0},
                  {locked, true, 0},
                  {locked + L"\\none.xls", true, 0}};
    for (const auto& [path, bAccepted, nTextId] : kCases) {
        SCOPED_TRACE(testing::PrintToString(path));
        CString strError = L"left over";
        EXPECT_EQ(CheckWorkbookPath(path.c_str(), strError), bAccepted);
        EXPECT_EQ(strError, nTextId ? app.Text(nTextId).c_str() : L"");
    }
    EXPECT_THAT(folder.Names(), testing::ElementsAre(L"locked", L"日本 語.xls"));
    EXPECT_EQ(ProbeFolderWritable(folder.Path().c_str()), 1);
    for (LPCWSTR pszNoFolder : {LPCWSTR{}, L"", book.c_str()}) EXPECT_EQ(ProbeFolderWritable(pszNoFolder), 2);
    EXPECT_EQ(ProbeFolderWritable(locked.c_str()), 3);
}
