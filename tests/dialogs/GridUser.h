#pragma once

#include "support/DialogUser.h"

#include <afxcmn.h>
#include <gtest/gtest.h>

#include <algorithm>

// A grid of an open dialog, as its user sees it and clicks into it. Rows and columns count from 0.
class GridUser {
  public:
    static constexpr int kEditorId = 10014, kComboId = 10015;

    GridUser(DialogUser& user, int nControlId) : m_user(user), m_hGrid(user.Control(nControlId)) {}

    CString Cell(int nRow, int nCol) const {
        wchar_t szText[300] = L"";
        ListView_GetItemText(m_hGrid, nRow, nCol, szText, 300);
        return szText;
    }
    void SetCell(int nRow, int nCol, CString strText) {
        ListView_SetItemText(m_hGrid, nRow, nCol, strText.GetBuffer(0));
    }
    // Each at another place, or two would be a double click.
    void Click(int nRow, int nCol) {
        m_nOffset = m_nOffset == 5 ? 20 : 5;
        ClickOnce(nRow, nCol);
    }
    void DoubleClick(int nRow, int nCol) {
        Click(nRow, nCol);
        ClickOnce(nRow, nCol);
    }
    // Types over a cell's text and leaves the editor open.
    void Type(int nRow, int nCol, const CString& strText) {
        Click(nRow, nCol);
        if (strText.IsEmpty()) m_user.Press(VK_DELETE);
        m_user.Type(strText);
    }
    // Opens the drop-down list of a row and takes a choice.
    void Choose(int nRow, LPCWSTR pszChoice) {
        OpenList(nRow);
        Select(pszChoice);
        m_user.Press(VK_RETURN);
    }
    void OpenList(int nRow) {
        Click(nRow, 0);
        m_user.Press(VK_F2);
    }
    void Select(LPCWSTR pszChoice) {
        SendDlgItemMessageW(m_hGrid, kComboId, CB_SELECTSTRING, static_cast<WPARAM>(-1),
                            reinterpret_cast<LPARAM>(pszChoice));
    }
    int ChoiceCount() const {
        return static_cast<int>(SendDlgItemMessageW(m_hGrid, kComboId, CB_GETCOUNT, 0, 0));
    }
    int SelectedRow() const { return ListView_GetNextItem(m_hGrid, -1, LVNI_SELECTED); }
    int RowCount() const { return ListView_GetItemCount(m_hGrid); }

    void ExpectCursorIn(int nRow, int nCol) const {
        const CRect editor = PlaceOfFocus(kEditorId), cell = PlaceOf(nRow, nCol);
        CRect grid;
        EXPECT_EQ(editor.left, cell.left);
        EXPECT_EQ(editor.top, cell.top - 2);
        GetClientRect(m_hGrid, &grid);
        EXPECT_LE(editor.bottom, grid.bottom + 2) << "out of view";
        EXPECT_LE(editor.right, grid.right) << "out of view";
    }

    // The drop-down list, half-way down the first cell of a row.
    void ExpectListIn(int nRow) const {
        const CRect list = PlaceOfFocus(kComboId), cell = PlaceOf(nRow, 0);
        EXPECT_LT(list.top, cell.bottom);
        EXPECT_GT(list.bottom, cell.top);
    }

  private:
    // Of an editor of the grid, which has the keyboard.
    CRect PlaceOfFocus(int nEditorId) const {
        const HWND hEditor = GetDlgItem(m_hGrid, nEditorId);
        EXPECT_EQ(GetFocus(), hEditor);
        CRect place;
        GetWindowRect(hEditor, &place);
        MapWindowPoints(nullptr, m_hGrid, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    void ClickOnce(int nRow, int nCol) {
        const CRect rect = PlaceOf(nRow, nCol);
        const int nOffset = std::min(m_nOffset, rect.Width() - 2);
        m_user.ClickAt(m_hGrid, CPoint(rect.left + nOffset, rect.top + rect.Height() / 2));
    }
    CRect PlaceOf(int nRow, int nCol) const {
        CRect rect;
        ListView_GetSubItemRect(m_hGrid, nRow, nCol, LVIR_LABEL, &rect);
        return rect;
    }

    DialogUser& m_user;
    const HWND m_hGrid;
    int m_nOffset = 5;
};
