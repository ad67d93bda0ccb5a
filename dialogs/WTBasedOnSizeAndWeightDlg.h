#pragma once

#include "GridParent.h"
#include "MFXRuleDlgBase.h"
#include "MFXWTBasedOnSizeAndWeightListCtrl.h"
#include "PictureControl.h"
#include "SizeAndWeightGroups.h"
#include "WrapperComboCtrl.h"

class CMFXWTBasedOnCastSizeAndWeightRule;

// Edits the bands of cast size and cast weight of each material group, and their units. A group is named by
// choosing from the groups of the material database. Another length unit does not convert the values; another
// mass unit converts the weights.
class CMFXWTBasedOnSizeAndWeightDlg : public CMFXRuleDlgBase, public IGridParent {
  public:
    // The rule is not owned.
    CMFXWTBasedOnSizeAndWeightDlg(CMFXWTBasedOnCastSizeAndWeightRule* pRule, CWnd* pParent);

    // The grids' news; nCode is a GridNotification or the control id of the grid.
    void OnGridNotify(const CString& strText, int nCode) override;
    void SupplyMaterialGroups(CMFXListCtrl& grid) override;

    void UpdateListCtrl() override;  // the groups that the list offers

    CString m_strLengthUnit;  // label of the rule's length unit, set before the dialog runs
    CString m_strHeading;     // stands before the caption of the mass unit

  protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnEditMaterials();
    afx_msg void OnMassUnitChange();
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
    DECLARE_MESSAGE_MAP()
    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;
    void OnOK() override;

  private:
    bool HasControls() const;
    UINT ShowDatabase();
    void OfferGroups();
    void SetUpGrids();
    void SetUpUnits();
    CMFXListCtrl* FindFocusedGrid();

    void ShowCurrentGroup();

    void CommitPendingCell();
    bool LeaveCurrentGroup();
    void ValidateWhileTyping();
    void NewGroup(const CString& strName);
    void SelectGroup(const CString& strName);
    void OnRowsDeleted(const CMFXListCtrl& grid);
    void UpdateOkButton();
    void UpdateMassCaption();
    bool EveryGroupHasBands();
    void ShowFlaw(const SizeAndWeightResult& result);

    CMFXWTBasedOnCastSizeAndWeightRule* m_pRule;
    SizeAndWeightGroups m_groups;
    std::vector<CString> m_materialGroups;  // the names that the database offers
    bool m_bEditable = false;

    PictureControl m_picture;
    CStatic m_staticCurrentGroup;
    CStatic m_staticMassCaption;
    CStatic m_staticOkHint;
    CMFXWTBasedOnSizeAndWeightListCtrl m_listGroups;
    CMFXWTBasedOnSizeAndWeightListCtrl m_gridBands;
    CWrapperComboCtrl m_comboDatabase;
    CWrapperComboCtrl m_comboMassUnit;
    CWrapperComboCtrl m_comboLengthUnit;
    CButton m_buttonOk;
};
