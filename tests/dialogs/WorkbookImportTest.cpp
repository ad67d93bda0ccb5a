#include "WorkbookImport.h"
#include "module/ModuleTestSupport.h"
#include "resource.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

TEST(WorkbookImportTest, SaysInTheUsersLanguageWhyAWorkbookIsNotRead) {
    const StartedApp app(L"korean");
    const TempFolder folder;
    const struct {
        std::wstring path;
        bool isAccepted;
        UINT textId;      // 0 for none
        UINT readTextId;  // of reading it all the same
    } kCases[] = {{L"b.xlsx", false, 0, 0},
                  {folder.Path(L"none.xlsx"), false, IDS_WORKBOOK_NOT_FOUND, IDS_WORKBOOK_NOT_FOUND},
                  {folder.Write(L"text.xlsx", "no workbook"), true, 0, IDS_WORKBOOK_NOT_OPENED}};
    for (const auto& [path, isAccepted, textId, readTextId] : kCases) {
        CString error = L"left over";
        EXPECT_EQ(CheckWorkbookPath(path.c_str(), error), isAccepted);
        EXPECT_EQ(error, app.Text(textId).c_str());
        WorkbookTable table;
        error = L"left over";
        EXPECT_FALSE(ReadWorkbookTable(path.c_str(), {L"A"}, table, error));
        EXPECT_EQ(error, app.Text(readTextId).c_str());
    }
}
