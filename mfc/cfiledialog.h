#pragma once

#include "cdialog.h"

#include <commdlg.h>

#include <vector>

// Dialog that Windows brings.
class MFX_MFC_API CCommonDialog : public CDialog {
  public:
    explicit CCommonDialog(CWnd* pParentWnd) : CDialog(0u, pParentWnd) {}
};

// Asks for the name of a file to open, or to save. The filter is pairs of a text and patterns, each followed
// by '|', with another '|' at the end. The last two arguments have no effect.
class MFX_MFC_API CFileDialog : public CCommonDialog {
  public:
    explicit CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt = NULL, LPCTSTR lpszFileName = NULL,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCTSTR lpszFilter = NULL,
                         CWnd* pParentWnd = NULL, DWORD dwSize = 0, BOOL bVistaStyle = TRUE);

    INT_PTR DoModal() override;  // IDOK or IDCANCEL

    OPENFILENAME& GetOFN() { return m_ofn; }
    CString GetPathName() const { return m_ofn.lpstrFile; }  // after IDOK

    OPENFILENAME m_ofn{};

  private:
    BOOL m_bOpenFileDialog;
    CString m_strDefExt;
    CString m_strFilter;
    std::vector<wchar_t> m_path;
};
