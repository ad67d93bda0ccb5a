#include "CrashReport.h"

#include <afxwin.h>

#include <gmock/gmock.h>

#include <clocale>

// The host's application object, as a program that loads the module has one.
static CWinApp theApp(L"tests");

int wmain(int argc, wchar_t** argv) {
    InstallCrashReport();
    std::setlocale(LC_ALL, "");  // as some hosts do: the C runtime then has the user's decimal mark
    AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
