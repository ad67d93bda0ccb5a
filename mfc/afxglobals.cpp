#include "afxwin.h"

#include "applications.h"
#include "modulename.h"

namespace {

HINSTANCE g_hResource = nullptr;

}  // namespace

CWinApp* AfxGetApp() {
    return mfx::CApplications::Find(::GetModuleHandleW(nullptr));
}

LPCTSTR AfxGetAppName() {
    const CWinApp* const app = AfxGetApp();
    if (app && app->m_pszAppName) return app->m_pszAppName;
    static const std::wstring programName = mfx::ModuleBaseName(nullptr);
    return programName.c_str();
}

HINSTANCE AfxGetInstanceHandle() {
    const CWinApp* const app = AfxGetApp();
    return app ? app->m_hInstance : ::GetModuleHandleW(nullptr);
}

CWnd* AfxGetMainWnd() {
    const CWinApp* const app = AfxGetApp();
    return app ? app->m_pMainWnd : nullptr;
}

HINSTANCE AfxGetResourceHandle() {
    return g_hResource ? g_hResource : ::GetModuleHandleW(nullptr);
}

void AfxSetResourceHandle(HINSTANCE hInstResource) {
    g_hResource = hInstResource;
}

BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE /*hPrevInstance*/, LPTSTR /*lpCmdLine*/, int /*nCmdShow*/) {
    if (CWinApp* const app = AfxGetApp()) app->m_hInstance = hInstance;
    return TRUE;
}
