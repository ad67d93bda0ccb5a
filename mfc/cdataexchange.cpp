#include "cdataexchange.h"

void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl) {
    if (!rControl.GetSafeHwnd()) rControl.SubclassWindow(pDX->PrepareCtrl(nIDC));
}

void DDX_Text(CDataExchange* pDX, int nIDC, CString& value) {
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (!hControl) return;
    if (pDX->m_bSaveAndValidate)
        pDX->m_pDlgWnd->GetDlgItemText(nIDC, value);
    else
        ::SetWindowTextW(hControl, value);
}

namespace {

// A value that a control gives for one message, and takes with another.
void ExchangeNumber(CDataExchange* pDX, int nIDC, UINT getMessage, UINT setMessage, int& value) {
    const HWND hControl = pDX->PrepareCtrl(nIDC);
    if (!hControl) return;
    if (pDX->m_bSaveAndValidate)
        value = static_cast<int>(::SendMessageW(hControl, getMessage, 0, 0));
    else
        ::SendMessageW(hControl, setMessage, static_cast<WPARAM>(value), 0);
}

}  // namespace

void DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index) {
    ExchangeNumber(pDX, nIDC, CB_GETCURSEL, CB_SETCURSEL, index);
}

void DDX_Check(CDataExchange* pDX, int nIDC, int& value) {
    ExchangeNumber(pDX, nIDC, BM_GETCHECK, BM_SETCHECK, value);
}
