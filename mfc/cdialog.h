#pragma once

#include "cwnd.h"

// Modal dialog. The template comes from AfxGetResourceHandle() at the time of DoModal.
class MFX_MFC_API CDialog : public CWnd {
  public:
    // Without a parent the application's main window is, if it has one. A name must stay valid.
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = NULL);
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = NULL);

    // What EndDialog was given, -1 if there is no such template or the window could not be made, IDABORT if
    // the program is to end. The owner is disabled meanwhile, and enabled before the dialog goes.
    virtual INT_PTR DoModal();
    void EndDialog(int nResult) { EndModalLoop(nResult); }

    // TRUE to let Windows set the focus. Exchanges data.
    virtual BOOL OnInitDialog();
    BOOL PreTranslateMessage(MSG* pMsg) override;

  protected:
    virtual void OnOK();  // reads the controls, and ends with IDOK if that succeeds
    virtual void OnCancel() { EndDialog(IDCANCEL); }

    DECLARE_MESSAGE_MAP()

  private:
    HWND FindOwner() const;
    BOOL CreateFromTemplate(HWND hOwner);
    int RunDialog();
    LRESULT HandleInitDialog(WPARAM, LPARAM) { return OnInitDialog(); }

    LPCTSTR m_lpszTemplateName;
    CWnd* m_pParentWnd;
};
