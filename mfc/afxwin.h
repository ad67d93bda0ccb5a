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

// The process's application: the host's, also when called from a DLL with an application object of its own.
// Null if the program has none.
MFX_MFC_API CWinApp* AfxGetApp();
// Never null: without an application or a name it is the base name of the program's file.
MFX_MFC_API LPCTSTR AfxGetAppName();
MFX_MFC_API HINSTANCE AfxGetInstanceHandle();
// The application's m_pMainWnd; null without one.
MFX_MFC_API CWnd* AfxGetMainWnd();

// Where strings, dialogs and bitmaps are loaded from. One handle for the whole process; it starts as the
// program's, and null sets it back to that.
MFX_MFC_API HINSTANCE AfxGetResourceHandle();
MFX_MFC_API void AfxSetResourceHandle(HINSTANCE hInstResource);

// For a program with its own entry point: tells the application object, if any, what the program was started
// with. lpCmdLine must stay valid. Always TRUE.
MFX_MFC_API BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);

// Button chosen, 0 if no box could be shown. The second form loads the text by AfxGetResourceHandle().
MFX_MFC_API int AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
MFX_MFC_API int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = (UINT)-1);
