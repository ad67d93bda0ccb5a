#pragma once

#include <afxwin.h>

// Text box that takes the characters of decimal numbers only. It does not check the number itself: "1.2.3"
// stays and is read as 1.2. A typed comma becomes a point where the user writes decimal commas.
class CDoubleEditEx : public CEdit {
  public:
    // Minus signs are refused until they are allowed here.
    void SetAllowNegative(bool bAllowNegative);

    bool IsModified() const { return m_bModified; }

    // The text that the box goes back to after a refused character. Call it after SetWindowText on a
    // multi-line box, which does not notify of texts set by code.
    void SetLastValidText(const CString& strText);

  protected:
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnChange();
    DECLARE_MESSAGE_MAP()

  private:
    bool m_bModified = false;  // true after any change that left some text
    CString m_strLastValid;
    bool m_bAllowNegative = false;
};
