#pragma once

#include <string>

#include "cwinthread.h"

namespace mfx {
class CApplications;
}

// Application object. A global object of the program, or one on the heap or the stack, is the process's
// application, which AfxGetApp returns. A global object of a DLL belongs to that DLL alone: its InitInstance
// runs when the DLL is loaded, its ExitInstance when it is unloaded.
class MFX_MFC_API CWinApp : public CWinThread {
  public:
    CWinApp(LPCTSTR lpszAppName = NULL);  // default: the name of the module's file
    ~CWinApp() override;

    BOOL InitInstance() override;
    int ExitInstance() override;

    HINSTANCE m_hInstance;  // module of the object
    LPCTSTR m_pszAppName;   // name given to the constructor

  private:
    friend class mfx::CApplications;

    CWinApp* m_pNext = nullptr;  // next living application object
    HMODULE m_hModule;  // module that the object lies in; the program for one on the heap or the stack
    std::wstring m_strAppName;
};
