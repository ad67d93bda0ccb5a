#pragma once

#include <afxwin.h>

// Text box for decimal numbers: a change that brings in another character is taken back. Only characters are
// checked, so "1.2.3" stays, and is read as 1.2.
class CDoubleEditEx : public CEdit {
  public:
    // Whether a minus sign is accepted; it is not at first.
    void SetAllowNegative(bool bAllowNegative);

    bool IsModified() const { return m_bModified; }

    // The text to go back to. A multi-line box does not notify of a text set by code, so whoever sets one
    // says it here.
    void SetLastValidText(const CString& strText);

  protected:
    afx_msg void OnChange();
    DECLARE_MESSAGE_MAP()

  private:
    bool m_bModified = false;  // by any change that left some text
    CString m_strLastValid;
    bool m_bAllowNegative = false;
};
