#include "CrashReport.h"

#include <afxwin.h>

#include <gmock/gmock.h>

// The host's application object, as a program that loads the module has one.
static CWinApp theApp(L"tests");

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
