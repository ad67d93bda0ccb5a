// Entry of the library where it is built with the real MFC: it exports classes derived from MFC's, so it is
// an MFC extension DLL and has to take its place in the chain of modules.

#include <afxwin.h>

#include <afxdllx.h>

namespace {

AFX_EXTENSION_MODULE g_module{};

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID /*lpReserved*/) {
    if (dwReason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(g_module, hInstance)) return FALSE;
        new CDynLinkLibrary(g_module);  // owned by the chain
    } else if (dwReason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(g_module);
    }
    return TRUE;
}
