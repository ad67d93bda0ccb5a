#pragma once

#include "GridParent.h"
#include "LanguageUtil.h"
#include "SandCastingRulesApp.h"
#include "support/MessageBoxRecorder.h"
#include "support/Screenshot.h"

#include <afxcmn.h>
#include <gtest/gtest.h>

// The dialog of a grid, in short: what the grid tells it.
class GridDialog : public CWnd, public IGridParent {
  public:
    void OnGridNotify(const CString& strText, int nCode) override {
        CString strLine;
        strLine.Format(L"%d:%s;", nCode, strText.GetString());
        m_strNotified += strLine;
    }
    void SupplyMaterialGroups(CMFXListCtrl&) override { ++m_nAsked; }

    CString TakeNotified() { return std::exchange(m_strNotified, CString()); }

    CString m_strNotified;
    int m_nAsked = 0;
};

// A grid in a visible window, in English, with as many rows as asked for.
template <class Grid>
class GridTest : public testing::Test {
  protected:
    static constexpr int kRows = 5;

    GridTest() {
        CLanguageUtil::SetMfxKitLang(L"english");
        m_app.InitInstance();
        m_dialog.CreateEx(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 800, 400), nullptr, 0);
        Create(1);
    }
    ~GridTest() override {
        m_dialog.DestroyWindow();
        m_app.ExitInstance();
        AfxSetResourceHandle(nullptr);
    }

    void Create(UINT nControlId) {
        if (m_grid.m_hWnd) m_grid.DestroyWindow();
        m_grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, CRect(0, 0, 780, 380),
                      &m_dialog, nControlId);
        m_grid.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_HEADERDRAGDROP);
    }

    void Fill(int nColumns, int nRows = kRows) {
        for (int nRow = 0; nRow < nRows; ++nRow) {
            m_grid.InsertRowText(nRow, Name(nRow, 0));
            for (int nCol = 1; nCol < nColumns; ++nCol) m_grid.SetCellText(nRow, nCol, Name(nRow, nCol));
        }
    }
    // A number that tells the cell: "102" is row 1, column 2.
    static CString Name(int nRow, int nCol) {
        CString strName;
        strName.Format(L"%d0%d", nRow, nCol);
        return strName;
    }

    CString Cell(int nRow, int nCol) const { return m_grid.GetItemText(nRow, nCol); }
    CString Row(int nRow) const {
        CString strRow = Cell(nRow, 0);
        for (int nCol = 1; nCol < 3; ++nCol) strRow += L"|" + Cell(nRow, nCol);
        return strRow;
    }

    CWnd& Editor() { return *m_grid.GetDlgItem(10014); }
    CComboBox& Combo() { return static_cast<CComboBox&>(*m_grid.GetDlgItem(10015)); }
    bool IsVisible(int nControlId) {
        CWnd* const pControl = m_grid.GetDlgItem(nControlId);
        return pControl && pControl->IsWindowVisible();
    }
    bool IsEditing(int nRow, int nCol) {
        return IsVisible(10014) && m_grid.GetEditRow() == nRow && m_grid.GetEditCol() == nCol &&
               CWnd::GetFocus() == &Editor();
    }
    void Edit(int nRow, int nCol, const CString& strText) {
        m_grid.BeginCellEdit(nRow, nCol, 260);
        Editor().SetWindowText(strText);
    }

    static MSG KeyMessage(WPARAM nKey) { return {nullptr, WM_KEYDOWN, nKey, 0, 0, {}}; }
    BOOL Press(WPARAM nKey) {
        MSG msg = KeyMessage(nKey);
        return m_grid.HandleKeyDown(&msg);
    }

    // A list view waits after a press for the release or a drag.
    void Click(int nRow, int nCol, UINT nMessage = WM_LBUTTONDOWN) {
        CRect rect;
        m_grid.GetSubItemRect(nRow, nCol, LVIR_LABEL, rect);
        const LPARAM at = MAKELPARAM(rect.left + 5, (rect.top + rect.bottom) / 2);
        m_grid.PostMessage(WM_LBUTTONUP, 0, at);
        m_grid.SendMessage(nMessage, MK_LBUTTON, at);
        WorkOff();
    }
    static void WorkOff() {
        MSG msg;
        while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&msg);
    }

    // Keeps what the grid looks like now, for somebody to look at.
    void Photograph(const CString& strName) {
        WorkOff();
        CreateDirectoryW(L"screenshots", nullptr);
        EXPECT_TRUE(SaveScreenshot(m_dialog, L"screenshots\\" + strName + L".png"));
    }

    CMFXSandCastingRulesApp m_app;
    MessageBoxRecorder m_boxes;
    GridDialog m_dialog;
    Grid m_grid;
};
