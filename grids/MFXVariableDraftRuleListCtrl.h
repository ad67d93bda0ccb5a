#pragma once

#include "MFXListCtrl.h"

// Grids of the variable draft angle dialog: a narrow blank column, then sizes and angles, each centred.
class CMFXVariableDraftRuleListCtrl : public CMFXListCtrl {
  public:
    // Columns of one width but the third, which has its own when that is at least 1. Pixels at 96 dpi.
    void InitColumns(const std::vector<CString>& headers, int nWidth, int nThirdColumnWidth);
    void InitBandColumns(const std::vector<CString>& headers);
    void InitWideColumns(const std::vector<CString>& headers);

    void HandleKeyDown(MSG* pMsg, BOOL* pbHandled);

    // Whether the text is another than the word for "default", in the user's language or in English.
    BOOL IsNotDefaultText(const CString& strText) const;
    // Whether the number that the text starts with, 0 for none, is not below zero by more than the tolerance;
    // FALSE for the empty text.
    BOOL IsNonNegativeText(const CString& strText) const;

  protected:
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    DECLARE_MESSAGE_MAP()
};
