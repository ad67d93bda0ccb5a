#pragma once

#include "DoubleEditEx.h"
#include "MFXRuleDlgBase.h"
#include "MFXUWTRuleListCtrl.h"
#include "PictureControl.h"
#include "WrapperComboCtrl.h"

class CMFXUniformThicknessRule;
struct MaterialLimitTexts;
struct MaterialLimitsResult;

// Edits the limits of a uniform thickness rule: a pair for all materials, a table of pairs by material, and
// which of the two are in force. Both are kept. Lengths are in the rule's unit. Materials come from the
// rule's category and from a group of the material database.
class CMFXUniformThicknessDlg : public CMFXRuleDlgBase {
  public:
    // The rule is not owned.
    CMFXUniformThicknessDlg(CWnd* pParent, CMFXUniformThicknessRule* pRule);

    CString m_strLengthUnit;  // label of the rule's length unit, set before the dialog runs

    void UpdateListCtrl() override;                         // the materials that the table offers
    void DeleteRow(int nRow) override;                      // blanks it
    void SetMaterialFlagForRule(bool bMaterials) override;  // chooses the limits in force

  protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnDeleteRows();
    afx_msg void OnEditMaterials();
    afx_msg void OnGroupChange();
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
    DECLARE_MESSAGE_MAP()
    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    void OnOK() override;

  private:
    // A limit of all materials.
    struct CommonLimit {
        long nParamId;  // also the string id of its name
        CButton check;
        CDoubleEditEx edit;
    };

    bool HasControls() const;
    void ShowCommonLimit(CommonLimit& limit, int nUnitControl);
    void ShowMaterials();
    void SetUpGroups();
    bool IsByMaterial() const;
    bool CheckCommonLimits();
    std::vector<MaterialLimitTexts> ReadMaterials() const;
    bool CheckMaterials(MaterialLimitsResult& result);
    void ShowFlaw(const MaterialLimitsResult& result);
    void StoreCommonLimit(const CommonLimit& limit);

    CMFXUniformThicknessRule* m_pRule;
    PictureControl m_picture;
    CButton m_radioCommon;
    CButton m_radioByMaterial;
    CommonLimit m_minimum;
    CommonLimit m_maximum;
    CWrapperComboCtrl m_comboGroup;
    CMFXUWTRuleListCtrl m_gridMaterials;
};
