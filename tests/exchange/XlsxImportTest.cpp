#include "LibraryPtr.h"
#include "WorkbookReader.h"
#include "XlsxReader.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

struct XlsxImportTest : testing::Test {
    // A library that is loaded already is taken before the real one, which stands beside this program.
    void Load(const std::wstring& path) {
        m_library.reset(LoadLibraryW(fs::path(path).make_preferred().c_str()));
        ASSERT_TRUE(m_library);
    }

    WorkbookFault Read(const std::wstring& name) {
        return ReadWorkbook(m_folder.Write(name, "").c_str(), {L"A", L"C"}, m_table, m_readerError);
    }

    const TempFolder m_folder;
    LibraryPtr m_library;
    WorkbookTable m_table{{L"left over"}};
    CString m_readerError;
};

}  // namespace

TEST_F(XlsxImportTest, HandsTheWorkbookToTheLibrary) {
    Load(Wide(MFX_READER_FOLDER) + L"\\" + kXlsxReaderLibrary);
    for (const std::wstring name : {L"日本 語.xlsx", L"B.XlSX"}) {
        EXPECT_EQ(Read(name), WorkbookFault::None);
        const CString path = m_folder.Path(name).c_str();
        EXPECT_EQ(m_table, (WorkbookTable{{path, L"A"}, {path, L"C"}}));
    }
    EXPECT_EQ(Read(L"throw.xlsx"), WorkbookFault::ReaderFailed);
    EXPECT_STREQ(m_readerError, L"");
    EXPECT_EQ(Read(L"refuse.xlsx"), WorkbookFault::ReaderFailed);
    EXPECT_STREQ(m_readerError, L"from the reader");
    m_library.reset();
    EXPECT_FALSE(GetModuleHandleW(kXlsxReaderLibrary));  // or a workbook would stay open with it
    const CString missing = m_folder.Path(L"none.xlsx").c_str();
    EXPECT_EQ(ReadWorkbook(missing, {L"A"}, m_table, m_readerError), WorkbookFault::NotFound);
    EXPECT_TRUE(m_table.empty());
}

TEST_F(XlsxImportTest, FailsWithoutTheExport) {
    const std::wstring library = m_folder.Path(kXlsxReaderLibrary);
    fs::copy_file(ProgramFolder() + L"\\MfxKitu.dll", library);
    Load(library);
    EXPECT_EQ(Read(L"b.xlsx"), WorkbookFault::ReaderMissing);
    EXPECT_TRUE(m_table.empty());
}
