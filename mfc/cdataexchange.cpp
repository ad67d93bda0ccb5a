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
