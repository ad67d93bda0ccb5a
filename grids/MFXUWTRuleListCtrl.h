#pragma once

#include "MFXListCtrl.h"

#include <map>

// Grid of the uniform thickness dialog: material, smallest and largest wall thickness.
class CMFXUWTRuleListCtrl : public CMFXListCtrl {
  public:
    void InitColumns(const std::vector<CString>& headers);

    // The limits that are filled in when a material is chosen. For a name given twice the first limits count.
    void SetMaterialDefaults(const std::vector<CString>& names, const std::vector<CString>& minimums,
                             const std::vector<CString>& maximums);
    void ForgetMaterialDefaults();

  protected:
    BOOL HandleKey(WPARAM nKey) override;
    BOOL CommitCombo() override;
    void BeginRowEdit(int nRow) override;
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    DECLARE_MESSAGE_MAP()

  private:
    BOOL CommitEditedCell();

    std::map<CString, CString> m_mapMaterialMin;
    std::map<CString, CString> m_mapMaterialMax;
};
