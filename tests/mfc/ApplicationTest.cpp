#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>

#include "MfcTestIds.h"
#include "support/MessageBoxRecorder.h"

namespace {

class CHostApp : public CWinApp {
  public:
    CHostApp() : CWinApp(L"Host") {}

    int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt) override {
        if (m_showForReal) return CWinApp::DoMessageBox(lpszPrompt, nType, nIDPrompt);
        m_shown.Format(L"%s|%u|%u", lpszPrompt, nType, nIDPrompt);
        return IDRETRY;
    }

    CString m_shown;
    bool m_showForReal = false;
};

CHostApp theApp;

struct ModuleCloser {
    void operator()(HMODULE module) const { ::FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, ModuleCloser>;

CString TakeTrace() {
    CString trace;
    ::GetEnvironmentVariableW(L"MFX_TEST_TRACE", trace.GetBuffer(1000), 1000);
    trace.ReleaseBuffer();
    ::SetEnvironmentVariableW(L"MFX_TEST_TRACE", nullptr);
    return trace;
}

Module LoadTestDll(LPCWSTR mode = nullptr) {
    ::SetEnvironmentVariableW(L"MFX_TEST_MODE", mode);
    TakeTrace();
    return Module(::LoadLibraryW(_T(MFX_TEST_DLL)));
}

// A handle of the host's own choice, which nothing but the host may change.
class ApplicationDllTest : public ::testing::Test {
  protected:
    void SetUp() override { AfxSetResourceHandle(m_hostHandle); }
    void TearDown() override {
        EXPECT_EQ(AfxGetResourceHandle(), m_hostHandle);
        EXPECT_EQ(AfxGetApp(), &theApp);
        AfxSetResourceHandle(nullptr);
        ::SetEnvironmentVariableW(L"MFX_TEST_MODE", nullptr);
    }

    const HINSTANCE m_hostHandle = ::GetModuleHandleW(L"kernel32.dll");
};

}  // namespace

TEST(ApplicationTest, ProgramsObjectIsTheApplication) {
    const HINSTANCE program = ::GetModuleHandleW(nullptr);
    EXPECT_STREQ(AfxGetAppName(), L"Host");
    EXPECT_TRUE(AfxGetApp() == &theApp && AfxGetInstanceHandle() == program);
    EXPECT_EQ(AfxGetResourceHandle(), program);
    // AfxWinInit keeps the pointer.
    static wchar_t s_commandLine[] = L"check file.xml";
    EXPECT_TRUE(AfxWinInit(program, nullptr, s_commandLine, SW_HIDE));
    EXPECT_STREQ(theApp.m_lpCmdLine, L"check file.xml");
    EXPECT_EQ(theApp.m_nCmdShow, SW_HIDE);

    auto app = std::make_unique<CWinApp>();
    EXPECT_TRUE(AfxGetApp() == app.get() && app->m_hInstance == program);
    EXPECT_STREQ(AfxGetAppName(), L"mfx_mfc_tests") << "without a name it is the file's";
    app.reset();
    EXPECT_EQ(AfxGetApp(), &theApp);
}

TEST_F(ApplicationDllTest, ObjectOfDllStartsAndEndsWithItsOwnResources) {
    Module dll = LoadTestDll();
    ASSERT_TRUE(dll);
    EXPECT_EQ(TakeTrace(), L"init from the test DLL;");
    EXPECT_EQ(AfxGetResourceHandle(), m_hostHandle);
    const auto look = reinterpret_cast<void (*)()>(::GetProcAddress(dll.get(), "Look"));
    CWinApp *own = nullptr, *seen = nullptr;
    CString text;
    reinterpret_cast<void (*)(CWinApp**, CWinApp**, CString*)>(look)(&own, &seen, &text);
    EXPECT_TRUE(own->m_hInstance == dll.get() && seen == &theApp);
    dll.reset();
    EXPECT_EQ(TakeTrace(), L"exit from the test DLL;");
    EXPECT_EQ(text + L'!', L"a text too long for a small buffer!") << "it outlives the DLL that made it";
}

TEST_F(ApplicationDllTest, FailedStartFailsTheLoadWithoutAnEnd) {
    for (const LPCWSTR mode : {L"fail", L"throw"}) {
        EXPECT_FALSE(LoadTestDll(mode));
        EXPECT_EQ(TakeTrace(), L"init from the test DLL;");
        EXPECT_EQ(AfxGetResourceHandle(), m_hostHandle);
    }
    // A later load finds no remains of a failed one; an exception at the end stays inside.
    EXPECT_TRUE(LoadTestDll(L"throw at exit"));
    EXPECT_FALSE(::GetModuleHandleW(_T(MFX_TEST_DLL)));
}

TEST(MessageBoxTest, GoesThroughTheApplicationToTheActiveWindow) {
    EXPECT_EQ(AfxMessageBox(L"text", MB_YESNO | MB_ICONSTOP, 7), IDRETRY);
    EXPECT_EQ(theApp.m_shown, L"text|20|7");
    // The string's id is the help context, unless another one is given.
    AfxMessageBox(IDS_TEST_FORMAT);
    EXPECT_EQ(theApp.m_shown, L"%s: %d of %d|0|102");
    AfxMessageBox(IDS_TEST_FORMAT, MB_OK, 5);
    EXPECT_EQ(theApp.m_shown, L"%s: %d of %d|0|5");

    const HWND window = ::CreateWindowW(L"STATIC", L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                        nullptr, nullptr, nullptr, nullptr);
    ::SetActiveWindow(window);
    MessageBoxRecorder boxes;
    boxes.Expect(L"question", MB_ICONQUESTION, IDNO);
    theApp.m_showForReal = true;
    EXPECT_EQ(AfxMessageBox(L"question", MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_EQ(boxes.m_strCaption, L"Host");
    EXPECT_TRUE(window && boxes.m_hOwner == window);
    ::DestroyWindow(window);
}
