#pragma once

#include "GridParent.h"
#include "module/ModuleTestSupport.h"
#include "support/MessageBoxRecorder.h"
#include "support/Screenshot.h"
#include "support/WindowText.h"

#include <afxcmn.h>
#include <functional>
#include <gmock/gmock.h>

#include <random>

// What a grid tells its dialog.
struct GridNotice {
    int nCode;
    CString strText;
    bool operator==(const GridNotice&) const = default;
};

class GridDialog : public CWnd, public IGridParent {
  public:
    void OnGridNotify(const CString& strText, int nCode) override {
        m_notices.push_back({nCode, strText});
        m_atNotice(nCode);
    }
    void SupplyMaterialGroups(CMFXListCtrl&) override { ++m_nAsked; }

    std::vector<GridNotice> TakeNotices() { return std::exchange(m_notices, {}); }

    std::vector<GridNotice> m_notices;
    std::function<void(int)> m_atNotice = [](int) {};
    int m_nAsked = 0;
};

// A grid in a visible window, in English.
template <class Grid>
class GridTest : public testing::Test {
  protected:
    static constexpr int kRows = 5, kEditorId = 10014, kComboId = 10015;

    GridTest() {
        m_dialog.CreateEx(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 800, 400), nullptr, 0);
        Create(1);
    }
    ~GridTest() override { m_dialog.DestroyWindow(); }

    void Create(UINT nControlId) {
        if (m_grid.m_hWnd) m_grid.DestroyWindow();
        m_grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, CRect(0, 0, 780, 380),
                      &m_dialog, nControlId);
        m_grid.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_HEADERDRAGDROP);
    }
    void Fill(int nColumns, int nRows = kRows) {
        for (int nRow = 0; nRow < nRows; ++nRow) {
            m_grid.InsertRowText(nRow, m_grid.GetColumnWidth(0) > Scaled(12) ? Name(nRow, 0) : CString());
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
    std::vector<CString> Row(int nRow) const { return {Cell(nRow, 0), Cell(nRow, 1), Cell(nRow, 2)}; }
    int Scaled(int nPixels) const { return MulDiv(nPixels, static_cast<int>(GetDpiForSystem()), 96); }

    CWnd& Editor() { return *m_grid.GetDlgItem(kEditorId); }
    CComboBox& Combo() { return static_cast<CComboBox&>(*m_grid.GetDlgItem(kComboId)); }
    CRect PlaceOf(const CWnd& control) {
        CRect place;
        control.GetWindowRect(place);
        m_grid.ScreenToClient(place);
        return place;
    }
    bool IsVisible(int nControlId) {
        CWnd* const pControl = m_grid.GetDlgItem(nControlId);
        return pControl && pControl->IsWindowVisible();
    }
    void ExpectEditing(int nRow, int nCol) {
        ASSERT_TRUE(IsVisible(kEditorId));
        EXPECT_EQ(m_grid.GetEditRow(), nRow);
        EXPECT_EQ(m_grid.GetEditCol(), nCol);
        EXPECT_EQ(CWnd::GetFocus(), &Editor());
    }
    void Edit(int nRow, int nCol, const CString& strText) {
        m_grid.BeginCellEdit(nRow, nCol, 260);
        Editor().SetWindowText(strText);
    }

    BOOL Press(WPARAM nKey) {
        MSG msg{nullptr, WM_KEYDOWN, nKey, 0, 0, {}};
        BOOL bHandled = FALSE;
        if constexpr (requires { m_grid.HandleKeyDown(&msg, &bHandled); })
            m_grid.HandleKeyDown(&msg, &bHandled);
        else
            bHandled = m_grid.HandleKeyDown(&msg);
        return bHandled;
    }
    void ExpectKeysUntaken() {
        for (const WPARAM nKey : {VK_TAB, VK_RETURN, VK_ESCAPE, VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN})
            EXPECT_FALSE(Press(nKey)) << nKey;
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
    // In the drop-down list of the first column, which a double click opens.
    void Choose(int nRow, int nItem) {
        Click(nRow, 0);
        Click(nRow, 0, WM_LBUTTONDBLCLK);
        ASSERT_TRUE(IsVisible(kComboId));
        Combo().SendMessage(CB_SETCURSEL, static_cast<WPARAM>(nItem));
        m_dialog.TakeNotices();
    }
    static void WorkOff() {
        MSG msg;
        while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&msg);
    }

    // Clicks, characters and keys at random: nothing may crash or hang.
    void Storm() {
        m_boxes.AnswerAll();
        std::mt19937 random(7);
        constexpr WPARAM kKeys[] = {VK_TAB,   VK_RETURN, VK_ESCAPE, VK_LEFT, VK_UP,
                                    VK_RIGHT, VK_DOWN,   VK_DELETE, L'5'};
        for (int i = 0; i < 200; ++i) {
            const int nRow = static_cast<int>(random() % 7), nCol = static_cast<int>(random() % 6);
            Click(nRow, nCol);
            if (random() % 2) Click(nRow, nCol, WM_LBUTTONDBLCLK);
            if (CWnd* const pFocus = CWnd::GetFocus()) pFocus->SendMessage(WM_CHAR, L"0123.x"[nCol], 1);
            m_grid.SendMessage(WM_VSCROLL, random() % 2 ? SB_LINEDOWN : SB_LINEUP);
            Press(kKeys[random() % std::size(kKeys)]);
            EXPECT_TRUE(!m_grid.IsEditing() || m_grid.GetEditRow() >= 0);
        }
        EXPECT_EQ(m_grid.GetItemCount(), kRows);
    }

    void Photograph(const CString& strName) {
        WorkOff();
        EXPECT_TRUE(KeepScreenshot(m_dialog, strName));
    }

    const StartedApp m_app{L"english"};
    MessageBoxRecorder m_boxes;
    GridDialog m_dialog;
    Grid m_grid;
};
