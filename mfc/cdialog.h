#pragma once

#include "cwnd.h"

// Modal dialog. The template comes from AfxGetResourceHandle() at the time of DoModal.
class MFX_MFC_API CDialog : public CWnd {
  public:
    // The default parent is the application's main window, if it has one.
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = NULL);

    // Returns what EndDialog was given; -1 if there is no such template or the window could not be made;
    // IDABORT if the program is to end. The owner is disabled while the dialog is open.
    virtual INT_PTR DoModal();
    void EndDialog(int nResult) { EndModalLoop(nResult); }

    // Exchanges data. TRUE lets Windows set the focus.
    virtual BOOL OnInitDialog();
    BOOL PreTranslateMessage(MSG* pMsg) override;

  protected:
    virtual void OnOK();  // reads the controls and ends the dialog with IDOK
    virtual void OnCancel() { EndDialog(IDCANCEL); }

    DECLARE_MESSAGE_MAP()

  private:
    friend class CFileDialog;
    HWND FindOwner() const;
    BOOL CreateFromTemplate(HWND hOwner);
    int RunDialog();
    LRESULT HandleInitDialog(WPARAM, LPARAM) { return OnInitDialog(); }

    LPCTSTR m_lpszTemplateName;
    CWnd* m_pParentWnd;
};
