#include "MFXRuleDlgBase.h"

#include "HandleMessage.h"

#include <htmlhelp.h>

namespace {

constexpr UINT kHelpMissingText = 10020;  // path of the help file

bool IsFile(const CString& strPath) {
    const DWORD dwAttributes = GetFileAttributesW(strPath);
    return dwAttributes != INVALID_FILE_ATTRIBUTES && !(dwAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Loaded at the first use, which is rare. It stays loaded, as its windows outlive the call. False when the
// help can't be shown.
bool OpenHelp(HWND hCaller, const CString& strPath, DWORD_PTR nTopic) {
    static const HMODULE hLibrary = LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const FARPROC address = hLibrary ? GetProcAddress(hLibrary, "HtmlHelpW") : nullptr;
    const auto htmlHelp = reinterpret_cast<decltype(&HtmlHelpW)>(reinterpret_cast<void (*)()>(address));
    return htmlHelp && htmlHelp(hCaller, strPath, HH_HELP_CONTEXT, nTopic);
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

CMFXRuleDlgBase::~CMFXRuleDlgBase() {
    EnableWindowsBehindOwner();
}

INT_PTR CMFXRuleDlgBase::DoModal() {
    const INT_PTR nResult = CDialog::DoModal();
    EnableWindowsBehindOwner();
    return nResult;
}

// CDialog disables the owner alone. That may be a palette of the host, in front of its main window.
void CMFXRuleDlgBase::DisableWindowsBehindOwner() {
    HWND hWindow = ::GetWindow(m_hWnd, GW_OWNER);
    while (hWindow && (hWindow = ::GetWindow(hWindow, GW_OWNER)))
        if (!::EnableWindow(hWindow, FALSE)) m_disabledWindows.push_back(hWindow);
}

void CMFXRuleDlgBase::EnableWindowsBehindOwner() {
    for (const HWND hWindow : m_disabledWindows) ::EnableWindow(hWindow, TRUE);
    m_disabledWindows.clear();
}

BOOL CMFXRuleDlgBase::OnInitDialog() {
    DisableWindowsBehindOwner();
    return CDialog::OnInitDialog();
}

LRESULT CMFXRuleDlgBase::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) {
    return HandleMessage(m_hWnd, nMessage, [&] { return CDialog::WindowProc(nMessage, wParam, lParam); });
}

BOOL CMFXRuleDlgBase::PreTranslateMessage(MSG* pMsg) {
    if (m_toolTips.GetSafeHwnd()) m_toolTips.RelayEvent(pMsg);
    BOOL bHandled = TRUE;  // also when its handling fails
    HandleMessage(m_hWnd, pMsg->message, [&] {
        if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_F1)
            ShowHelp();
        else
            bHandled = CDialog::PreTranslateMessage(pMsg);
        return 0;
    });
    return bHandled;
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

void CMFXRuleDlgBase::ShowMessage(const CString& strText, UINT nIcon) {
    MessageBox(strText, kMessageCaption, nIcon);
}

bool CMFXRuleDlgBase::AskUser(const CString& strText) {
    return MessageBox(strText, kMessageCaption, MB_ICONQUESTION | MB_OKCANCEL) == IDOK;
}

void CMFXRuleDlgBase::AddToolTip(CWnd& control, const CString& strText) {
    constexpr int kWidest = 400;  // pixels at 96 dpi; without it a tip has one line
    if (!control.GetSafeHwnd()) return;
    if (!m_toolTips.GetSafeHwnd() && m_toolTips.Create(this))
        m_toolTips.SetMaxTipWidth(kWidest * static_cast<int>(GetDpiForWindow(m_hWnd)) /
                                  USER_DEFAULT_SCREEN_DPI);
    if (m_toolTips.GetSafeHwnd()) m_toolTips.AddTool(&control, strText);
}

BOOL CMFXRuleDlgBase::RefuseToEdit(UINT nReason) {
    for (HWND hControl = ::GetWindow(m_hWnd, GW_CHILD); hControl;
         hControl = ::GetWindow(hControl, GW_HWNDNEXT))
        ::EnableWindow(hControl, ::GetDlgCtrlID(hControl) == IDCANCEL);
    if (CWnd* const pCancel = GetDlgItem(IDCANCEL)) pCancel->SetFocus();
    CString strText;
    strText.LoadString(nReason);
    ShowMessage(strText, MB_ICONEXCLAMATION);
    return FALSE;
}

void CMFXRuleDlgBase::ShowHelp() {
    if (IsFile(m_strHelpFile) && OpenHelp(m_hWnd, m_strHelpFile, static_cast<DWORD_PTR>(m_nRuleId))) return;
    CString strText;
    strText.Format(kHelpMissingText, m_strHelpFile.GetString());
    ShowMessage(strText, MB_ICONEXCLAMATION);
}
