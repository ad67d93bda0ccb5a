#pragma once

#include "DoubleEditEx.h"

#include <afxcmn.h>

#include <vector>

// Report-style list view whose cells are edited in place: a text box or a drop-down list floats over one cell
// at a time. Cells hold text. Editing a cell clears the selection, so that Delete deletes characters. An
// editor is created on its first use and only hidden afterwards. From then on cell editing counts as active,
// and each EndCellEdit writes the hidden editor's text again, on purpose. Call ForgetEditedCell before you
// refill the grid, or old text is written over new.
class CMFXListCtrl : public CListCtrl {
  public:
    // Styles of the grids in rule dialogs.
    static constexpr DWORD kExtendedStyle = LVS_EX_GRIDLINES | LVS_EX_HEADERDRAGDROP | LVS_EX_FULLROWSELECT |
                                            LVS_EX_ONECLICKACTIVATE | LVS_EX_INFOTIP;
    static constexpr int kTextLimit = 260;

    // Shows the text editor over a cell, with all its text selected; the row comes into view. The text limit
    // of the first call stays in force. Does nothing for a cell that does not exist.
    void BeginCellEdit(int nRow, int nCol, int nTextLimit);
    // Hides the text editor and writes its text into the cell; FALSE when no cell has been edited yet.
    BOOL EndCellEdit(CString& strText);
    // Hide an editor and drop what was typed or chosen in it, so that no later EndCellEdit writes it. FALSE
    // when the editor has not been used yet.
    BOOL CancelCellEdit();
    BOOL CancelComboEdit();
    // Whether a cell has been edited since the grid was made.
    BOOL IsCellEditActive() const;

    // Shows the drop-down list over a cell, filled with the combo items.
    void BeginComboEdit(int nRow, int nCol, int nTextLimit);
    // Hides the drop-down list and writes the choice into the cell. FALSE when the list has not been used
    // yet, or has nothing to choose. Also FALSE when another row has the choice in column 0: then a message
    // shows the choice and the given text, and the list goes back to the cell's own text.
    BOOL EndComboEdit(CString& strText, const CString& strDuplicateMessage);

    void SetCellText(int nRow, int nCol, const CString& strText);
    void InsertRowText(int nRow, const CString& strText);
    // Drops all rows and what is being edited, and makes so many empty rows.
    void MakeEmptyRows(int nRows);

    bool IsEditorVisible() const;  // the text editor
    CString GetEditorText() const;
    bool IsEditing() const;  // in the text editor or the drop-down list
    // Ends what is being edited as Enter does; false when a choice is refused.
    bool EndEditing();
    // Whether the keyboard is at the grid or one of its editors.
    bool HasFocus() const;
    // The cell edited last, -1 for none.
    int GetEditRow() const { return m_nEditRow; }
    int GetEditCol() const { return m_nEditCol; }
    // Also hides the editors.
    void ForgetEditedCell();

    void SetComboItems(const std::vector<CString>& items);
    BOOL IsValueInFirstColumn(const CString& strText) const;

    // Ends editing of a minimum (column 1) or maximum (column 2). The cell is emptied when its text is no
    // number, or when the maximum is below the minimum.
    void CommitNumericCell(int nRow, int nCol);
    // FALSE, after a message, when the row's maximum is below its minimum.
    BOOL CheckMinMaxCells(int nRow, int nCol);

    // Handles a key while a cell is edited; TRUE when the message is consumed. With no cell recorded only
    // Delete is taken. The dialog passes every message here before it translates it.
    BOOL HandleKeyDown(MSG* pMsg);
    // Blanks the selected rows; their number stays, since the dialogs' tables have a fixed length.
    BOOL DeleteSelectedRows();

  protected:
    // C++ exceptions of handlers end here and in HandleKeyDown; the user is told.
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;
    afx_msg void OnDestroy();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg LRESULT OnNextDialogControl(WPARAM bPrevious, LPARAM lParam);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    DECLARE_MESSAGE_MAP()

    // Any key, whether a cell is recorded or not; TRUE when it is consumed.
    virtual BOOL HandleKey(WPARAM nKey);
    // F2: edits a row, so that no mouse is needed.
    virtual void BeginRowEdit(int nRow);
    // Commits the choice of the drop-down list as a key does; FALSE when it is refused.
    virtual BOOL CommitCombo();

    // Creates the columns unless the grid has some, and makes the rows as high as an edit box. The keyboard
    // moves the editor to all but the first column.
    // Widths are pixels at 96 dpi; the last one holds for all further columns.
    void CreateColumns(const std::vector<CString>& headers, const std::vector<int>& widths, int nFormat);
    // Commits the cell, then moves the editor by so many rows and columns if bMove.
    BOOL CommitAndMove(int nRows, int nCols, bool bMove = true);
    struct Cell {
        int nRow, nCol;  // -1 for none
    };
    Cell FindCell(CPoint point);  // at a point of the client area
    bool IsComboVisible() const;

    int m_nFirstEditCol = 0;  // columns that the keyboard moves the editor to
    int m_nLastEditCol = 0;
    std::vector<CString> m_vecComboItems;
    CDoubleEditEx m_editCell;
    CComboBox m_comboCell;
    int m_nEditRow = -1;
    int m_nEditCol = -1;
    CString m_strEditStartText;

  private:
    void SetRowHeight();
    bool GetEditorRect(int nRow, int nCol, CRect& rect);
    bool ScrollIntoView(const CRect& cell);
    void CreateEditor(int nCol, const CRect& rect, int nTextLimit);
    void Hide(CWnd& editor);
    void RecordEditedCell(int nRow, int nCol, const CString& strText);
    void SetEditorText(const CString& strText);
    int FindComboItem(const CString& strText) const;
    BOOL HandleComboKey(WPARAM nKey);
};
