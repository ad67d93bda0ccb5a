#pragma once

#include "DraftTableCheck.h"
#include "MFXListCtrl.h"

// Grids of the variable draft angle dialog: a narrow blank column, then sizes and angles, each centred.
class CMFXVariableDraftRuleListCtrl : public CMFXListCtrl {
  public:
    static constexpr int kFirstBandCol = 1;  // behind the blank column
    static constexpr int kLastBandCol = kFirstBandCol + DraftCell::ThirdAngle;

    // Widths are pixels at 96 dpi. The third column has its own width when that is at least 1.
    void InitColumns(const std::vector<CString>& headers, int nWidth, int nThirdColumnWidth);
    void InitBandColumns(const std::vector<CString>& headers);
    void InitWideColumns(const std::vector<CString>& headers);

    void HandleKeyDown(MSG* pMsg, BOOL* pbHandled);

    // FALSE for the word "default", in the user's language or in English.
    BOOL IsNotDefaultText(const CString& strText) const;
    // Reads the number at the start of the text, always with a decimal point; no number counts as 0. FALSE
    // when it is below zero by more than the tolerance, and for the empty text.
    BOOL IsNonNegativeText(const CString& strText) const;

  protected:
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    DECLARE_MESSAGE_MAP()
};
