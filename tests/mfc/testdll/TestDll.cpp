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

// The host reads the trace from its environment, also when this DLL is gone. The resource handle is spoilt.
void Enter(const CString& what) {
    CString text;
    text.LoadString(IDS_TEST_GREETING);
    ::SetEnvironmentVariableW(L"MFX_TEST_TRACE", Variable(L"MFX_TEST_TRACE") + what + text + L';');
    AfxSetResourceHandle(::GetModuleHandleW(L"user32.dll"));
}

class CTestDllApp : public CWinApp {
  public:
    CTestDllApp() : CWinApp(L"TestDll") {}

    BOOL InitInstance() override {
        Enter(L"init ");
        const CString mode = Variable(L"MFX_TEST_MODE");
        if (mode == L"throw") throw std::runtime_error("start");
        return mode != L"fail";
    }

    int ExitInstance() override {
        Enter(L"exit ");
        if (Variable(L"MFX_TEST_MODE") == L"throw at exit") throw std::runtime_error("end");
        return 0;
    }
};

CTestDllApp theApp;

}  // namespace
