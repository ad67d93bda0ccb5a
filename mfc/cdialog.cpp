#include "cdialog.h"

#include "afxwin.h"
#include "windowcreation.h"

namespace {

// Has to be there for Windows to send WM_INITDIALOG. Messages come to the object before.
INT_PTR CALLBACK NoDialogProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

}  // namespace

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, &CDialog::OnOK)
    ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
    ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
END_MESSAGE_MAP()

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : m_lpszTemplateName(MAKEINTRESOURCEW(nIDTemplate)), m_pParentWnd(pParentWnd) {}

HWND CDialog::FindOwner() const {
    const CWnd* const pParent = m_pParentWnd ? m_pParentWnd : AfxGetMainWnd();
    if (!pParent) return nullptr;
    const HWND hTop = ::GetAncestor(pParent->GetSafeHwnd(), GA_ROOT);
    // The main window may have a dialog open already.
    return m_pParentWnd || !hTop ? hTop : ::GetLastActivePopup(hTop);
}

BOOL CDialog::CreateFromTemplate(HWND hOwner) {
    const HINSTANCE hResources = AfxGetResourceHandle();
    const HRSRC hFound = ::FindResourceW(hResources, m_lpszTemplateName, RT_DIALOG);
    const HGLOBAL hLoaded = hFound ? ::LoadResource(hResources, hFound) : nullptr;
    if (!hLoaded) return FALSE;
    const auto dialog = static_cast<LPCDLGTEMPLATE>(::LockResource(hLoaded));
    return mfx::CreateWindowOf(*this, [&] {
               return ::CreateDialogIndirectParamW(AfxGetInstanceHandle(), dialog, hOwner, NoDialogProcedure,
                                                   0);
           }) != nullptr;
}

INT_PTR CDialog::DoModal() {
    m_bContinueModal = true;
    const HWND hOwner = FindOwner();
    const bool bOwnerWasEnabled = hOwner && !::EnableWindow(hOwner, FALSE);
    const INT_PTR nResult = CreateFromTemplate(hOwner) ? RunDialog() : -1;
    // Before the dialog is destroyed, so that Windows can activate the owner then.
    if (bOwnerWasEnabled) ::EnableWindow(hOwner, TRUE);
    DestroyWindow();
    return nResult;
}

int CDialog::RunDialog() {
    if (!m_bContinueModal) return m_nModalResult;  // OnInitDialog has ended it already
    ShowWindow(SW_SHOWNORMAL);
    return RunModalLoop();
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg) {
    return CWnd::PreTranslateMessage(pMsg) || ::IsDialogMessageW(m_hWnd, pMsg);
}

void CDialog::OnOK() {
    if (UpdateData(TRUE)) EndDialog(IDOK);
}
