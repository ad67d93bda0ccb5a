#pragma once

#include "MfxKitExport.h"

#include <afxcmn.h>

#include <vector>

inline constexpr wchar_t kMessageCaption[] = L"MfxKit";  // of message boxes

// Base of the modal rule dialogs. The template, and the texts of the base itself (string ids 10020 and
// 10021), come from the resource library that is current while the dialog runs.
class MFXKIT_API CMFXRuleDlgBase : public CDialog {
  public:
    // strHelpFile: full path of the help file that F1 opens at the topic of the rule. Without a parent the
    // dialog belongs to the host's main window, or else to the active window of this thread. Its owner and
    // the windows behind that can't be used while the dialog is open: the host must not delete the rule.
    CMFXRuleDlgBase(UINT nTemplateId, long nRuleId, const CString& strHelpFile, CWnd* pParent);
    ~CMFXRuleDlgBase() override;

    INT_PTR DoModal() override;
    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

    // Called when the dialog's grid has to be filled again. Here: there is none.
    virtual void UpdateListCtrl();
    // Called when a row of the dialog's grid has to be deleted. Here: there is none.
    virtual void DeleteRow(int nRow);
    // Called when the materials of a rule are switched on or off. Here: the rule has none.
    virtual void SetMaterialFlagForRule(bool bMaterials);

  protected:
    // C++ exceptions of handlers end here and in PreTranslateMessage; the user is told.
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
    DECLARE_MESSAGE_MAP()

    // Binds a control to its window where the template has it; OnInitDialog looks for those that it needs.
    void BindControl(CDataExchange* pDX, int nControlId, CWnd& control);

    // A message box of the dialog, with an icon such as MB_ICONINFORMATION.
    void ShowMessage(const CString& strText, UINT nIcon);

    // A question; true when it is answered by OK, and not by Cancel.
    bool AskUser(const CString& strText);

    // Shows a text, of several lines perhaps, while the pointer rests on a control.
    void AddToolTip(CWnd& control, const CString& strText);

    // For an OnInitDialog that finds nothing to edit: says why (a string id; by default, that something of
    // the rule or the dialog is missing) and leaves Cancel alone usable. Always FALSE.
    BOOL RefuseToEdit(UINT nReason = kNothingToEdit);

  private:
    static constexpr UINT kNothingToEdit = 10021;

    void DisableWindowsBehindOwner();
    void EnableWindowsBehindOwner();
    void ShowHelp();

    const long m_nRuleId;
    const CString m_strHelpFile;
    std::vector<HWND> m_disabledWindows;
    CToolTipCtrl m_toolTips;
};
