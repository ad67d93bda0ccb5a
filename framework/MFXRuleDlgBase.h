#pragma once

#include "MfxKitExport.h"

#include <afxwin.h>

// Base of the modal rule dialogs. The template, and the texts of the base itself (string ids 10020 and
// 10021), come from the resource library that is current while the dialog runs.
class MFXKIT_API CMFXRuleDlgBase : public CDialog {
  public:
    // strHelpFile: full path of the help file that F1 opens at the topic of the rule. Without a parent the
    // dialog belongs to the host's main window, or else to the active window of this thread: the host can't
    // be used, and can't delete the rule, while the dialog is open.
    CMFXRuleDlgBase(UINT nTemplateId, long nRuleId, const CString& strHelpFile, CWnd* pParent);
    ~CMFXRuleDlgBase() override;

    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

    // Called when the dialog's grid has to be filled again. Here: there is none.
    virtual void UpdateListCtrl();
    // Called when a row of the dialog's grid has to be deleted. Here: there is none.
    virtual void DeleteRow(int nRow);
    // Called when the materials of a rule are switched on or off. Here: the rule has none.
    virtual void SetMaterialFlagForRule(bool bMaterials);

  protected:
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
    DECLARE_MESSAGE_MAP()

    // Binds a control to its window where the template has it; OnInitDialog looks for those that it needs.
    void BindControl(CDataExchange* pDX, int nControlId, CWnd& control);

    // For an OnInitDialog that finds nothing to edit: says so and leaves Cancel alone usable. Always FALSE.
    BOOL RefuseToEdit();

  private:
    void ShowHelp();

    const long m_nRuleId;
    const CString m_strHelpFile;
};
