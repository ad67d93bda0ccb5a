#include "afxwin.h"

#include "applications.h"
#include "modulename.h"

namespace {

HMODULE ModuleOf(const void* object) {
    HMODULE module = nullptr;
    constexpr DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!::GetModuleHandleExW(flags, static_cast<LPCWSTR>(object), &module))
        module = ::GetModuleHandleW(nullptr);
    return module;
}

}  // namespace

CWinApp::CWinApp(LPCTSTR lpszAppName)
    : m_hModule(ModuleOf(this)), m_strAppName(lpszAppName ? lpszAppName : mfx::ModuleBaseName(m_hModule)) {
    m_hInstance = m_hModule;
    m_pszAppName = m_strAppName.c_str();
    mfx::CApplications::Add(this);
}

CWinApp::~CWinApp() {
    mfx::CApplications::Remove(this);
}

BOOL CWinApp::InitInstance() {
    return CWinThread::InitInstance();
}

int CWinApp::ExitInstance() {
    return CWinThread::ExitInstance();
}
