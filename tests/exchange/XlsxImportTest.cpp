#include "LibraryPtr.h"
#include "WorkbookReader.h"
#include "XlsxReader.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

// A library that is loaded already is taken before the real one, which stands beside this program.
TEST(XlsxImportTest, HandsTheWorkbookToTheLibraryAndLetsGoOfIt) {
    const TempFolder folder;
    WorkbookTable table{{L"left over"}};
    CString readerError;
    const auto read = [&](const std::wstring& name) {
        return ReadWorkbook(folder.Write(name, "").c_str(), {L"A", L"C"}, table, readerError);
    };
    fs::path file = fs::path(Wide(MFX_READER_FOLDER)) / kXlsxReaderLibrary;
    LibraryPtr library(LoadLibraryW(file.make_preferred().c_str()));
    ASSERT_TRUE(library);
    for (const std::wstring name : {L"日本 語.xlsx", L"B.XlSX"}) {
        EXPECT_EQ(read(name), WorkbookFault::None);
        const CString path = folder.Path(name).c_str();
        EXPECT_EQ(table, (WorkbookTable{{path, L"A"}, {path, L"C"}}));
    }
    EXPECT_EQ(read(L"throw.xlsx"), WorkbookFault::ReaderFailed);
    EXPECT_STREQ(readerError, L"");
    EXPECT_EQ(read(L"refuse.xlsx"), WorkbookFault::ReaderFailed);
    EXPECT_STREQ(readerError, L"from the reader");
    library.reset();
    EXPECT_FALSE(GetModuleHandleW(kXlsxReaderLibrary));  // the import let go of it
    EXPECT_EQ(ReadWorkbook(L"C:\\none.xlsx", {L"A"}, table, readerError), WorkbookFault::NotFound);
    EXPECT_TRUE(table.empty());
    fs::copy_file(ProgramFolder() + L"\\MfxKitu.dll", folder.Path(kXlsxReaderLibrary));  // without the export
    library.reset(LoadLibraryW(folder.Path(kXlsxReaderLibrary).c_str()));
    EXPECT_TRUE(library);
    EXPECT_EQ(read(L"b.xlsx"), WorkbookFault::ReaderMissing);
}
