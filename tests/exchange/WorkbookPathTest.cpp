#include "WorkbookPath.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

TEST(WorkbookPathTest, TakesThePartBeforeTheLastBackslash) {
    wchar_t* folder = nullptr;
    EXPECT_TRUE(GetFolderOfPath(L"\\\\server\\日本 a\\c.xls", folder));
    EXPECT_STREQ(std::unique_ptr<wchar_t[]>(folder).get(), L"\\\\server\\日本 a");
    EXPECT_FALSE(GetFolderOfPath(nullptr, folder));
    EXPECT_EQ(folder, nullptr);
}

TEST(WorkbookPathTest, ProbesTheFolderAndAcceptsWhatCanBeAWorkbook) {
    const TempFolder folder;
    const std::wstring locked = folder.Path(L"locked");
    fs::create_directories(locked + L"\\MFX.log");  // no file of that name can be made
    const std::wstring book = folder.Write(L"日本 語.xls", "");
    folder.Write(L"MFX.log", "lost");
    using enum WorkbookFault;
    const std::pair<std::wstring, WorkbookFault> kCases[] = {{L"", NotFound},
                                                             {L"C:/b.xls", PathWithoutFolder},
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
