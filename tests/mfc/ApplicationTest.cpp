#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>

#include "MfcTestIds.h"

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

template <typename Function>
Function* Export(const Module& module, LPCSTR name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(::GetProcAddress(module.get(), name)));
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
    EXPECT_EQ(AfxGetApp(), &theApp);
    EXPECT_STREQ(AfxGetAppName(), L"Host");
    EXPECT_EQ(AfxGetInstanceHandle(), program);
    EXPECT_EQ(AfxGetResourceHandle(), program);

    // AfxWinInit keeps the pointer.
    static wchar_t s_commandLine[] = L"check file.xml";
    EXPECT_TRUE(AfxWinInit(program, nullptr, s_commandLine, SW_HIDE));
    EXPECT_STREQ(theApp.m_lpCmdLine, L"check file.xml");
    EXPECT_EQ(theApp.m_nCmdShow, SW_HIDE);
}

TEST(ApplicationTest, ObjectOnHeapTakesItsPlaceAndLeavesIt) {
    auto app = std::make_unique<CWinApp>();
    EXPECT_EQ(AfxGetApp(), app.get());
    EXPECT_EQ(app->m_hInstance, ::GetModuleHandleW(nullptr));
    EXPECT_STREQ(app->m_lpCmdLine, L"");
    // Without a name it is the program's file name, also when somebody cleared the name.
    const CString name = AfxGetAppName();
    EXPECT_EQ(name, L"mfx_mfc_tests");
    app->m_pszAppName = nullptr;
    EXPECT_EQ(name, AfxGetAppName());
    app.reset();
    EXPECT_EQ(AfxGetApp(), &theApp);
}

TEST_F(ApplicationDllTest, ObjectOfDllStartsAndEndsWithItsOwnResources) {
    Module dll = LoadTestDll();
    ASSERT_TRUE(dll);
    EXPECT_EQ(TakeTrace(), L"init from the test DLL;");
    EXPECT_EQ(AfxGetResourceHandle(), m_hostHandle);

    CWinApp* const own = Export<CWinApp*()>(dll, "OwnApplication")();
    EXPECT_EQ(own->m_hInstance, dll.get());
    EXPECT_NE(own, AfxGetApp());
    EXPECT_EQ(Export<CWinApp*()>(dll, "SeenApplication")(), &theApp);

    dll.reset();
    EXPECT_EQ(TakeTrace(), L"exit from the test DLL;");
    EXPECT_EQ(AfxGetApp(), &theApp);
}

TEST_F(ApplicationDllTest, FailedStartFailsTheLoadWithoutAnEnd) {
    for (const LPCWSTR mode : {L"fail", L"throw"}) {
        EXPECT_FALSE(LoadTestDll(mode));
        EXPECT_EQ(TakeTrace(), L"init from the test DLL;");
        EXPECT_EQ(AfxGetResourceHandle(), m_hostHandle);
    }
    EXPECT_TRUE(LoadTestDll()) << "a later load must not find the remains of the failed one";
}

TEST_F(ApplicationDllTest, ExceptionAtTheEndStaysInside) {
    Module dll = LoadTestDll(L"throw at exit");
    ASSERT_TRUE(dll);
    dll.reset();
    EXPECT_FALSE(::GetModuleHandleW(_T(MFX_TEST_DLL)));
}

TEST_F(ApplicationDllTest, TextOutlivesTheDllThatMadeIt) {
    Module dll = LoadTestDll();
    ASSERT_TRUE(dll);
    CString text;
    Export<void(CString*)>(dll, "FillText")(&text);
    dll.reset();
    EXPECT_EQ(text + L'!', L"a text too long for a small buffer!");
}

TEST(MessageBoxTest, GoesThroughTheApplication) {
    EXPECT_EQ(AfxMessageBox(L"text", MB_YESNO | MB_ICONSTOP, 7), IDRETRY);
    EXPECT_EQ(theApp.m_shown, L"text|20|7");
    // The string's id is the help context, unless another one is given.
    AfxMessageBox(IDS_TEST_FORMAT);
    EXPECT_EQ(theApp.m_shown, L"%s: %d of %d|0|102");
    AfxMessageBox(IDS_TEST_FORMAT, MB_OK, 5);
    EXPECT_EQ(theApp.m_shown, L"%s: %d of %d|0|5");
}

namespace {

CString s_caption;
CString s_prompt;
HWND s_owner;

LRESULT CALLBACK AnswerBox(int code, WPARAM wParam, LPARAM lParam) {
    const HWND box = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && ::GetDlgItem(box, 0xFFFF)) {
        ::GetWindowTextW(box, s_caption.GetBuffer(100), 100);
        s_caption.ReleaseBuffer();
        ::GetDlgItemTextW(box, 0xFFFF, s_prompt.GetBuffer(100), 100);
        s_prompt.ReleaseBuffer();
        s_owner = ::GetWindow(box, GW_OWNER);
        ::PostMessageW(box, WM_COMMAND, IDNO, 0);
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

TEST(MessageBoxTest, RealBoxIsOwnedByTheActiveWindow) {
    const HWND window = ::CreateWindowExW(0, L"STATIC", L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100,
                                          100, nullptr, nullptr, nullptr, nullptr);
    if (!window) GTEST_SKIP() << "no display";
    ::SetActiveWindow(window);
    const HHOOK hook = ::SetWindowsHookExW(WH_CBT, AnswerBox, nullptr, ::GetCurrentThreadId());
    theApp.m_showForReal = true;
    EXPECT_EQ(AfxMessageBox(L"question", MB_YESNO), IDNO);
    theApp.m_showForReal = false;
    ::UnhookWindowsHookEx(hook);
    EXPECT_EQ(s_caption, L"Host");
    EXPECT_EQ(s_prompt, L"question");
    EXPECT_EQ(s_owner, window);
    ::DestroyWindow(window);
}
