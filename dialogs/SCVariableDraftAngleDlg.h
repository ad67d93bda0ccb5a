#pragma once

#include "DraftTableCheck.h"
#include "MFXRuleDlgBase.h"
#include "MFXVariableDraftRuleListCtrl.h"
#include "PictureControl.h"
#include "WrapperComboCtrl.h"

class CMFXSCVariableDraftAngleRule;

// Edits the size bands of a variable draft angle rule, and the unit of their sizes. The bands can also come
// from a workbook (Ctrl+I; DraftSheet.h). Another unit does not convert the sizes.
class CMFXSCVariableDraftAngleDlg : public CMFXRuleDlgBase {
  public:
    // The rule is not owned.
    CMFXSCVariableDraftAngleDlg(CWnd* pParent, CMFXSCVariableDraftAngleRule* pRule);

    // Captions of the rule's units, set before the dialog runs.
    CString m_strLengthUnit;
    CString m_strAngleUnit;

  protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    afx_msg void OnDestroy();
    afx_msg void OnHotKey(UINT nHotKeyId, UINT nKey1, UINT nKey2);
    afx_msg void OnImport();
    afx_msg void OnLengthUnitChange();
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
    DECLARE_MESSAGE_MAP()
    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    void OnOK() override;

  private:
    void SetUpGrids();
    void LoadBands();
    void ShowBands(const std::vector<MfxTableRow>& rows);
    void EndBandEdit();
    bool StoreBands();
    void ShowFlaw(const DraftTableResult& result);
    void ImportWorkbook(const CString& strPath);

    CMFXSCVariableDraftAngleRule* m_pRule;
    PictureControl m_picture;
    CMFXVariableDraftRuleListCtrl m_gridLegend;
    CMFXVariableDraftRuleListCtrl m_gridBands;
    CWrapperComboCtrl m_comboLengthUnit;
    CFont m_headerFont;
};
