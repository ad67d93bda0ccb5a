// Entry of a DLL with an application object of its own.

#include "afxwin.h"

#include "applications.h"

namespace {

bool g_isInitialized = false;

// In MFC such a DLL has a module state of its own while its application object starts and ends: it finds its
// own resources, and what it sets there stays there. The handle is one for the process here, so it is lent.
class CModuleResources {
  public:
    explicit CModuleResources(HINSTANCE module) : m_hPrevious(AfxGetResourceHandle()) {
        AfxSetResourceHandle(module);
    }
    ~CModuleResources() { AfxSetResourceHandle(m_hPrevious); }
    CModuleResources(const CModuleResources&) = delete;
    CModuleResources& operator=(const CModuleResources&) = delete;

  private:
    HINSTANCE m_hPrevious;
};

// The loader can't handle an exception; it counts as a failed start.
BOOL StartApplication(HINSTANCE module) noexcept try {
    CWinApp* const app = mfx::CApplications::Find(module);
    const CModuleResources resources(module);
    g_isInitialized = !app || app->InitInstance();
    return g_isInitialized;
} catch (...) {
    return FALSE;
}

void EndApplication(HINSTANCE module) noexcept try {
    CWinApp* const app = mfx::CApplications::Find(module);
    const CModuleResources resources(module);
    if (app) app->ExitInstance();
} catch (...) {
    // The DLL goes away all the same.
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID lpReserved) {
    if (dwReason == DLL_PROCESS_ATTACH) return StartApplication(hInstance);
    // A failed start is followed by a detach too. With lpReserved set the process is ending: other threads
    // were stopped wherever they were, perhaps inside the heap, and the system takes back everything anyway.
    if (dwReason == DLL_PROCESS_DETACH && g_isInitialized && !lpReserved) {
        g_isInitialized = false;
        EndApplication(hInstance);
    }
    return TRUE;
}
