#include "FileDialogs.h"

#include "SandCastingRulesApp.h"

#include <vector>

namespace {

// The dialog for files changes the current folder, also when it is told not to.
class CurrentFolderKeeper {
  public:
    CurrentFolderKeeper() { GetCurrentDirectoryW(static_cast<DWORD>(m_folder.size()), m_folder.data()); }
    ~CurrentFolderKeeper() { SetCurrentDirectoryW(m_folder.data()); }
    CurrentFolderKeeper(const CurrentFolderKeeper&) = delete;
    CurrentFolderKeeper& operator=(const CurrentFolderKeeper&) = delete;

  private:
    std::vector<wchar_t> m_folder = std::vector<wchar_t>(GetCurrentDirectoryW(0, nullptr) + 1);
};

}  // namespace

CString AskForPath(CFileDialog& dialog) {
    const CurrentFolderKeeper keeper;
    return dialog.DoModal() == IDOK ? dialog.GetPathName() : CString();
}

CString AskForWorkbook(CWnd* pParent) {
    constexpr DWORD kFlags = OFN_HIDEREADONLY | OFN_FILEMUSTEXIST;
    CFileDialog dialog(TRUE, L"XLS", nullptr, kFlags, L"XLS Files (*.xls;*.xlsx)|*.xls; *.xlsx|", pParent);
    CString& strFolder = g_pSandCastingRulesApp->m_strImportFolder;
    if (!strFolder.IsEmpty()) dialog.GetOFN().lpstrInitialDir = strFolder;
    CString strPath = AskForPath(dialog);
    if (!strPath.IsEmpty()) strFolder = strPath.Left(strPath.ReverseFind(L'\\') + 1);
    return strPath;
}
