#pragma once

#include "DoubleEditEx.h"
#include "MFXRuleDlgBase.h"
#include "MaterialEdits.h"
#include "WrapperComboCtrl.h"

// Edits the material database: groups and materials in a tree, and the figures of the one that is selected.
// OK saves all changes together. A database that can't be written can be looked at, and exported.
class CEditMaterialDBDlg : public CMFXRuleDlgBase {
  public:
    explicit CEditMaterialDBDlg(CWnd* pParent);

    void UpdateListCtrl() override;  // shows what stands in the database

  protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnDelete();
    afx_msg void OnExport();
    afx_msg void OnImport();
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
    afx_msg void OnNewGroup();
    afx_msg void OnNewMaterial();
    afx_msg void OnSelectionChanged(NMHDR* pNotify, LRESULT* pResult);
    afx_msg void OnSelectionChanging(NMHDR* pNotify, LRESULT* pResult);
    afx_msg void OnUnitChange();
    DECLARE_MESSAGE_MAP()
    BOOL OnInitDialog() override;
    void OnOK() override;

  private:
    bool HasControls() const;
    void SetUpUnits();
    void TakeUnits();
    void MakeReadOnly(const MfxDatabaseResult& reason);
    void ShowTree();
    void InsertItem(int nItem);
    void ShowItem(int nItem);
    void EnableControls();
    bool TakeTexts();
    void ShowFlaw(MaterialFlaw flaw);
    void ShowNewItem(int nItem);
    bool Save();
    bool IsKind(int nItem, MaterialEdits::Kind kind) const;
    int FindAbove(MaterialEdits::Kind kind) const;

    MaterialEdits m_edits;
    std::vector<HTREEITEM> m_treeItems;  // by item
    int m_nShown = -1;                   // the item whose texts stand in the boxes
    bool m_bWritable = false;

    CTreeCtrl m_tree;
    CEdit m_editName;
    CDoubleEditEx m_editDensity;
    CDoubleEditEx m_editMinimum;
    CDoubleEditEx m_editMaximum;
    CWrapperComboCtrl m_comboDensityUnit;
    CWrapperComboCtrl m_comboWallUnit;
};

// Opens the editor over a rule's dialog, which then shows what the database offers.
void EditMaterialsFrom(CMFXRuleDlgBase& dialog);
