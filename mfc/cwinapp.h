#pragma once

#include <string>

#include "cwinthread.h"

namespace mfx {
class CApplications;
}

// Application object. One that lies in the program itself, or in no module (heap, stack), is the process's
// application, which AfxGetApp returns. One that lies in a DLL belongs to that DLL alone; its InitInstance
// runs when the DLL is loaded, its ExitInstance when it is unloaded.
class MFX_MFC_API CWinApp : public CWinThread {
  public:
    CWinApp(LPCTSTR lpszAppName = NULL);  // without a name it is that of the module's file
    ~CWinApp() override;

    BOOL InitInstance() override;
    int ExitInstance() override;

    // Shows what AfxMessageBox is given; to be overridden, not called.
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);

    HINSTANCE m_hInstance;           // module of the object
    LPCTSTR m_pszAppName;            // name given to the constructor
    LPTSTR m_lpCmdLine;              // never null; empty until AfxWinInit
    int m_nCmdShow = SW_SHOWNORMAL;  // for the first ShowWindow

  private:
    friend class mfx::CApplications;

    CWinApp* m_pNext = nullptr;  // next living application object
    HMODULE m_hModule;           // module that the object lies in; the program's for one that lies in none
    std::wstring m_strAppName;
    TCHAR m_szNoCommandLine[1] = {};
};
