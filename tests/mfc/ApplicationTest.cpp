#include <afxwin.h>

#include <gtest/gtest.h>

#include "MfcTestIds.h"
#include "support/MessageBoxRecorder.h"

namespace {

CWinApp theApp(L"Host");

CString TakeTrace() {
    CString trace;
    ::GetEnvironmentVariableW(L"MFX_TEST_TRACE", trace.GetBuffer(1000), 1000);
    trace.ReleaseBuffer();
    ::SetEnvironmentVariableW(L"MFX_TEST_TRACE", nullptr);
    return trace;
}

}  // namespace

TEST(ApplicationTest, ObjectOfDllStartsAndEndsWithItsOwnResources) {
    // A handle of the host's own choice, which nothing but the host may change.
    const HINSTANCE hostHandle = ::GetModuleHandleW(L"kernel32.dll");
    AfxSetResourceHandle(hostHandle);
    const CString init = L"init from the test DLL;", exit = L"exit from the test DLL;";
    const struct {
        LPCWSTR mode;
        bool isLoaded;
        CString trace;
    } cases[] = {{L"", true, init + exit},
                 {L"fail", false, init},
                 {L"throw", false, init},
                 {L"throw at exit", true, init + exit}};
    for (const auto& c : cases) {
        SCOPED_TRACE(CString(c.mode).GetString());
        ::SetEnvironmentVariableW(L"MFX_TEST_MODE", c.mode);
        const HMODULE dll = ::LoadLibraryW(_T(MFX_TEST_DLL));
        EXPECT_EQ(dll != nullptr, c.isLoaded);
        EXPECT_EQ(AfxGetResourceHandle(), hostHandle);
        EXPECT_EQ(AfxGetApp(), &theApp);
        if (dll) ::FreeLibrary(dll);
        EXPECT_EQ(AfxGetResourceHandle(), hostHandle);
        EXPECT_EQ(TakeTrace(), c.trace);
        EXPECT_FALSE(::GetModuleHandleW(_T(MFX_TEST_DLL)));
    }
    AfxSetResourceHandle(nullptr);
}

TEST(MessageBoxTest, BelongsToTheActiveWindow) {
    CWnd window;
    window.CreateEx(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 90, 50), nullptr, 0);
    ::SetActiveWindow(window);
    MessageBoxRecorder boxes;
    boxes.Expect(L"%s: %d of %d", MB_ICONQUESTION, IDNO);
    EXPECT_EQ(AfxMessageBox(IDS_TEST_FORMAT, MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_EQ(boxes.m_strCaption, L"Host");
    EXPECT_EQ(boxes.m_hOwner, window.m_hWnd);
}
