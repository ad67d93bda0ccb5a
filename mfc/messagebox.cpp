#include "messagebox.h"

#include "afxwin.h"

int mfx::ShowMessageBox(LPCWSTR text, UINT type) {
    HWND owner = ::GetActiveWindow();
    if (owner) owner = ::GetLastActivePopup(owner);
    return ::MessageBoxW(owner, text, AfxGetAppName(), type);
}

int AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp) {
    CWinApp* const app = AfxGetApp();
    return app ? app->DoMessageBox(lpszText, nType, nIDHelp) : mfx::ShowMessageBox(lpszText, nType);
}

int AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp) {
    CString text;
    text.LoadString(nIDPrompt);
    return AfxMessageBox(text.GetString(), nType, nIDHelp == static_cast<UINT>(-1) ? nIDPrompt : nIDHelp);
}
