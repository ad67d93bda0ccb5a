#include "WorkbookImport.h"
#include "XlsxReader.h"
#include "module/ModuleTestSupport.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <utility>

namespace fs = std::filesystem;
using namespace testing;

namespace {

struct XlsxImportTest : Test {
    ~XlsxImportTest() override {
        if (m_hLoaded) FreeLibrary(m_hLoaded);
    }

    // A library that is loaded already is taken before the real one, which stands beside this program.
    void Load(const std::wstring& path) {
        m_hLoaded = LoadLibraryW(fs::path(path).make_preferred().c_str());
        ASSERT_TRUE(m_hLoaded);
    }

    bool Read(const std::wstring& name) {
        return ReadWorkbookTable(m_folder.Write(name, "").c_str(), {L"A", L"C"}, m_table, m_strError);
    }

    const StartedApp m_app{L"english"};
    const TempFolder m_folder;
    HMODULE m_hLoaded = nullptr;
    WorkbookTable m_table{{L"left over"}};
    CString m_strError = L"left over";
};

}  // namespace

TEST_F(XlsxImportTest, HandsTheWorkbookToTheLibrary) {
    Load(Wide(MFX_READER_FOLDER) + L"\\" + kXlsxReaderLibrary);
    for (const std::wstring name : {L"日本 語.xlsx", L"B.XlSX"}) {
        EXPECT_TRUE(Read(name));
        const CString strPath = m_folder.Path(name).c_str();
        EXPECT_EQ(m_table, (WorkbookTable{{strPath, L"A"}, {strPath, L"C"}}));
    }
    EXPECT_FALSE(Read(L"refuse.xlsx"));
    EXPECT_STREQ(m_strError, L"from the reader");
    EXPECT_FALSE(Read(L"throw.xlsx"));
    EXPECT_STREQ(m_strError, L"");
    FreeLibrary(std::exchange(m_hLoaded, nullptr));
    EXPECT_FALSE(GetModuleHandleW(kXlsxReaderLibrary));
    EXPECT_FALSE(ReadWorkbookTable(m_folder.Path(L"none.xlsx").c_str(), {L"A"}, m_table, m_strError));
    EXPECT_TRUE(m_table.empty());  // the library was not even asked
}

TEST_F(XlsxImportTest, FailsWithoutTheExport) {
    const std::wstring library = m_folder.Path(kXlsxReaderLibrary);
    fs::copy_file(ProgramFolder() + L"\\MfxKitu.dll", library);
    Load(library);
    EXPECT_FALSE(Read(L"b.xlsx"));
    EXPECT_TRUE(m_table.empty() && m_strError.IsEmpty());
}
