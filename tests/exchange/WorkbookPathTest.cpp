#include "WorkbookPath.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <optional>

namespace fs = std::filesystem;

TEST(WorkbookPathTest, TakesThePartBeforeTheLastBackslash) {
    const std::pair<LPCWSTR, std::optional<std::wstring>> kCases[] = {
        {L"\\\\server\\日本 a\\c.xls", L"\\\\server\\日本 a"},
        {L"C:\\a\\", L"C:\\a"},
        {L"\\c.xls", L""},
        {L"C:/a/c.xls", std::nullopt},
        {nullptr, std::nullopt}};
    for (const auto& [path, expected] : kCases) {
        wchar_t* folder = nullptr;
        EXPECT_EQ(GetFolderOfPath(path, folder), expected.has_value());
        const std::unique_ptr<wchar_t[]> owner(folder);
        EXPECT_STREQ(folder, expected ? expected->c_str() : nullptr);
    }
}

TEST(WorkbookPathTest, ProbesTheFolderAndAcceptsWhatCanBeAWorkbook) {
    const TempFolder folder;
    const std::wstring locked = folder.Path(L"locked");
    fs::create_directories(locked + L"\\MFX.log");  // no file of that name can be made
    const std::wstring book = folder.Write(L"日本 語.xls", "");
    folder.Write(L"MFX.log", "lost");
    using enum WorkbookFault;
    const std::pair<std::wstring, WorkbookFault> kCases[] = {{L"", NotFound},
                                                             {L"b.xls", PathWithoutFolder},
                                                             {L"\\b.xls", NotFound},
                                                             {folder.Path(L"none\\b.xls"), NotFound},
                                                             {book + L"\\b.xls", NotFound},
                                                             {folder.Path(L"none.xls"), NotFound},
                                                             {book, None},
                                                             {locked + L"\\none.xls", None}};
    for (const auto& [path, fault] : kCases)
        EXPECT_EQ(FindPathFault(path.c_str()), fault) << testing::PrintToString(path);
    EXPECT_THAT(folder.Names(), testing::ElementsAre(L"locked", L"日本 語.xls"));
    EXPECT_EQ(ProbeFolderWritable(nullptr), NoFolder);
}
