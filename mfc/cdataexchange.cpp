#include "cdataexchange.h"

void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl) {
    if (!rControl.GetSafeHwnd()) rControl.SubclassWindow(pDX->PrepareCtrl(nIDC));
}
