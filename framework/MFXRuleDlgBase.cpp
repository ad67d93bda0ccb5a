#include "MFXRuleDlgBase.h"

#include <htmlhelp.h>

namespace {

constexpr UINT kHelpMissingText = 10020;  // path of the help file
constexpr UINT kNothingToEditText = 10021;
constexpr wchar_t kCaption[] = L"MfxKit";

bool IsFile(const CString& strPath) {
    const DWORD dwAttributes = GetFileAttributesW(strPath);
    return dwAttributes != INVALID_FILE_ATTRIBUTES && !(dwAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Null leaves it to CDialog, which takes the main window.
CWnd* ParentOrActiveWindow(CWnd* pParent) {
    return pParent || AfxGetMainWnd() ? pParent : CWnd::GetActiveWindow();
}

}  // namespace

BEGIN_MESSAGE_MAP(CMFXRuleDlgBase, CDialog)
    ON_WM_NCLBUTTONDOWN()
END_MESSAGE_MAP()

CMFXRuleDlgBase::CMFXRuleDlgBase(UINT nTemplateId, long nRuleId, const CString& strHelpFile, CWnd* pParent)
    : CDialog(nTemplateId, ParentOrActiveWindow(pParent)), m_nRuleId(nRuleId), m_strHelpFile(strHelpFile) {}

CMFXRuleDlgBase::~CMFXRuleDlgBase() = default;

BOOL CMFXRuleDlgBase::OnInitDialog() {
    return CDialog::OnInitDialog();
}

BOOL CMFXRuleDlgBase::PreTranslateMessage(MSG* pMsg) {
    if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_F1) {
        ShowHelp();
        return TRUE;
    }
    return CDialog::PreTranslateMessage(pMsg);
}

void CMFXRuleDlgBase::UpdateListCtrl() {}

void CMFXRuleDlgBase::DeleteRow(int) {}

void CMFXRuleDlgBase::SetMaterialFlagForRule(bool) {}

void CMFXRuleDlgBase::OnNcLButtonDown(UINT nHitTest, CPoint point) {
    CDialog::OnNcLButtonDown(nHitTest, point);
}

void CMFXRuleDlgBase::BindControl(CDataExchange* pDX, int nControlId, CWnd& control) {
    if (GetDlgItem(nControlId)) DDX_Control(pDX, nControlId, control);
}

BOOL CMFXRuleDlgBase::RefuseToEdit() {
    if (CWnd* const pOk = GetDlgItem(IDOK)) pOk->EnableWindow(FALSE);
    if (CWnd* const pCancel = GetDlgItem(IDCANCEL)) pCancel->SetFocus();
    CString strText;
    strText.LoadString(kNothingToEditText);
    MessageBox(strText, kCaption, MB_ICONEXCLAMATION);
    return FALSE;
}

void CMFXRuleDlgBase::ShowHelp() {
    const auto nTopic = static_cast<DWORD_PTR>(m_nRuleId);
    if (IsFile(m_strHelpFile) && HtmlHelpW(m_hWnd, m_strHelpFile, HH_HELP_CONTEXT, nTopic)) return;
    CString strText;
    strText.Format(kHelpMissingText, m_strHelpFile.GetString());
    MessageBox(strText, kCaption, MB_ICONEXCLAMATION);
}
