#include <afxwin.h>

#include <stdexcept>

#include "../MfcTestIds.h"

namespace {

CString Variable(LPCWSTR name) {
    CString value;
    ::GetEnvironmentVariableW(name, value.GetBuffer(1000), 1000);
    value.ReleaseBuffer();
    return value;
}

// The host reads the trace from its environment, also when this DLL is gone.
void Trace(const CString& text) {
    ::SetEnvironmentVariableW(L"MFX_TEST_TRACE", Variable(L"MFX_TEST_TRACE") + text + L';');
}

class CTestDllApp : public CWinApp {
  public:
    CTestDllApp() : CWinApp(L"TestDll") {}

    BOOL InitInstance() override {
        CString text;
        text.LoadString(IDS_TEST_GREETING);
        Trace(L"init " + text);
        AfxSetResourceHandle(::GetModuleHandleW(L"user32.dll"));
        const CString mode = Variable(L"MFX_TEST_MODE");
        if (mode == L"throw") throw std::runtime_error("start");
        return mode != L"fail";
    }

    int ExitInstance() override {
        CString text;
        text.LoadString(IDS_TEST_GREETING);
        Trace(L"exit " + text);
        AfxSetResourceHandle(::GetModuleHandleW(L"user32.dll"));
        if (Variable(L"MFX_TEST_MODE") == L"throw at exit") throw std::runtime_error("end");
        return 0;
    }
};

CTestDllApp theApp;

}  // namespace

extern "C" __declspec(dllexport) CWinApp* OwnApplication() {
    return &theApp;
}

extern "C" __declspec(dllexport) CWinApp* SeenApplication() {
    return AfxGetApp();
}

extern "C" __declspec(dllexport) void FillText(CString* text) {
    *text = L"a text too long for a small buffer";
}
