#include "WrapperComboCtrl.h"

BEGIN_MESSAGE_MAP(CWrapperComboCtrl, CComboBox)
    ON_WM_CREATE()
END_MESSAGE_MAP()

int CWrapperComboCtrl::OnCreate(LPCREATESTRUCT lpCreateStruct) {
    return CComboBox::OnCreate(lpCreateStruct);
}
