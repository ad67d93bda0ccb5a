#pragma once

#include "CastSizeAndWeightBand.h"
#include "GridParent.h"
#include "MFXListCtrl.h"

// Both grids of the size-and-weight dialog. The list of material groups has one column. The band grid
// (control 29114) has a narrow blank column and five of numbers. The grid notifies its dialog if that is an
// IGridParent.
class CMFXWTBasedOnSizeAndWeightListCtrl : public CMFXListCtrl {
  public:
    static constexpr int kGroupCol = 0;
    static constexpr int kFirstBandCol = 1;  // behind the blank column
    static constexpr int kLastBandCol = kFirstBandCol + BandCell::Thickness;

    void InitGroupColumns(const std::vector<CString>& headers);
    void InitBandColumns(const std::vector<CString>& headers);

    // Ends editing of a number; a text that is no number is emptied.
    void CommitCell(int nRow, int nCol);

    // The cell under the last left click, -1 for none.
    int GetLastHitRow() const { return m_nLastHitRow; }
    int GetLastHitCol() const { return m_nLastHitCol; }

  protected:
    BOOL HandleKey(WPARAM nKey) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL CommitCombo() override;
    void BeginRowEdit(int nRow) override;
    afx_msg void OnDestroy();
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    DECLARE_MESSAGE_MAP()

  private:
    bool IsBandGrid() const;
    bool CanEdit(const Cell& cell) const;
    CString CommitEditedCell();
    void Notify(const CString& strText, GridNotification code);
    void NotifyOfSelection(int nRow);
    void NotifyOfKeySelection(int nRowBefore);
    int GetCurrentRow() const;
    IGridParent* FindGridParent() const;

    int m_nLastHitRow = -1;
    int m_nLastHitCol = -1;
};
