#pragma once

#include <afxwin.h>

// Combo box of the rule dialogs.
class CWrapperComboCtrl : public CComboBox {
  protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()
};
