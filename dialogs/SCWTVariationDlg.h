#pragma once

#include "DoubleEditEx.h"
#include "MFXRuleDlgBase.h"
#include "WrapperComboCtrl.h"

class CMFXSCWTVariationRule;
class CMfxParamStorage;

// Edits the variation that a wall-thickness variation rule allows, and the rule's length unit.
class CMFXSCWTVariationDlg : public CMFXRuleDlgBase {
  public:
    // The rule is not owned.
    CMFXSCWTVariationDlg(CMFXSCWTVariationRule* pRule, CWnd* pParent);

  protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
    DECLARE_MESSAGE_MAP()
    BOOL OnInitDialog() override;
    void OnOK() override;

  private:
    CMfxParamStorage* FindVariation() const;
    bool StoreVariation();

    CDoubleEditEx m_editVariation;
    CWrapperComboCtrl m_comboLengthUnit;
    CMFXSCWTVariationRule* m_pRule;
};
