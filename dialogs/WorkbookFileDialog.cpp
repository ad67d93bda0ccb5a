#include "WorkbookFileDialog.h"

#include "SandCastingRulesApp.h"

#include <afxdlgs.h>

CString AskForWorkbook(CWnd* pParent) {
    // The host's current folder stays as it is.
    constexpr DWORD kFlags = OFN_HIDEREADONLY | OFN_FILEMUSTEXIST | OFN_NOCHANGEDIR;
    CFileDialog dialog(TRUE, L"XLS", nullptr, kFlags, L"XLS Files (*.xls;*.xlsx)|*.xls; *.xlsx|", pParent);
    CString& strFolder = g_pSandCastingRulesApp->m_strImportFolder;
    if (!strFolder.IsEmpty()) dialog.GetOFN().lpstrInitialDir = strFolder;
    if (dialog.DoModal() != IDOK) return CString();
    const CString strPath = dialog.GetPathName();
    strFolder = strPath.Left(strPath.ReverseFind(L'\\'));
    return strPath;
}
