#pragma once

#include "afx.h"
#include "afxcoll.h"
#include "atltypes.h"
#include "ccmdtarget.h"
#include "cdc.h"
#include "cwnd.h"
#include "messagehandler.h"
#include "cdataexchange.h"
#include "cdialog.h"
#include "cbutton.h"
#include "ccombobox.h"
#include "cedit.h"
#include "cstatic.h"
#include "cwinthread.h"
#include "cwinapp.h"

// Shows the wait cursor until its end.
class CWaitCursor {
  public:
    CWaitCursor() : m_hPrevious(::SetCursor(::LoadCursorW(nullptr, IDC_WAIT))) {}
    ~CWaitCursor() { ::SetCursor(m_hPrevious); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

  private:
    HCURSOR m_hPrevious;
};

// The program's application, also for a DLL that has an application object of its own. Null if the program
// has none.
MFX_MFC_API CWinApp* AfxGetApp();
// The application's name. Without an application, the base name of the program's file.
MFX_MFC_API LPCTSTR AfxGetAppName();
MFX_MFC_API HINSTANCE AfxGetInstanceHandle();
// The application's m_pMainWnd; null without one.
MFX_MFC_API CWnd* AfxGetMainWnd();

// Where strings and dialogs are loaded from. The process has one such handle. It starts as the program's, and
// null sets it back to that.
MFX_MFC_API HINSTANCE AfxGetResourceHandle();
MFX_MFC_API void AfxSetResourceHandle(HINSTANCE hInstResource);

// For a program with its own entry point: gives the application object its instance handle. The other
// arguments have no effect. Always TRUE.
MFX_MFC_API BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);

// A message box with the application's name as caption. Its owner is the last active popup of the thread's
// active window, if there is one. Returns the button chosen, 0 if no box could be shown. The help id has no
// effect. The second form loads the text by AfxGetResourceHandle().
MFX_MFC_API int AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
MFX_MFC_API int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = (UINT)-1);
