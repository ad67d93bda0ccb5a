#include "cdialog.h"

#include "afxwin.h"
#include "windowcreation.h"

namespace {

// Keeps an owner from being used while its dialog is open.
class CDisabledWindow {
  public:
    explicit CDisabledWindow(HWND hWnd) : m_hWnd(hWnd), m_bWasEnabled(hWnd && !::EnableWindow(hWnd, FALSE)) {}
    ~CDisabledWindow() {
        if (m_bWasEnabled) ::EnableWindow(m_hWnd, TRUE);
    }
    CDisabledWindow(const CDisabledWindow&) = delete;
    CDisabledWindow& operator=(const CDisabledWindow&) = delete;

    const HWND m_hWnd;

  private:
    const bool m_bWasEnabled;
};

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

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
    : m_lpszTemplateName(lpszTemplateName), m_pParentWnd(pParentWnd) {}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : CDialog(MAKEINTRESOURCEW(nIDTemplate), pParentWnd) {}

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
    const mfx::CWindowCreation creation(*this);
    return ::CreateDialogIndirectParamW(AfxGetInstanceHandle(), dialog, hOwner, NoDialogProcedure, 0) !=
           nullptr;
}

INT_PTR CDialog::DoModal() {
    m_bContinueModal = true;
    INT_PTR nResult = -1;
    {
        const CDisabledWindow disabledOwner(FindOwner());
        if (CreateFromTemplate(disabledOwner.m_hWnd)) nResult = RunDialog();
    }
    DestroyWindow();  // only now, so that Windows can activate the owner
    return nResult;
}

int CDialog::RunDialog() {
    if (!m_bContinueModal) return m_nModalResult;  // OnInitDialog has ended it already
    ShowWindow(SW_SHOWNORMAL);
    return RunModalLoop();
}

void CDialog::EndDialog(int nResult) {
    EndModalLoop(nResult);
}

LRESULT CDialog::HandleInitDialog(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    return OnInitDialog();
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

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}
