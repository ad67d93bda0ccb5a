#include "GridTest.h"
#include "MFXUWTRuleListCtrl.h"
#include "MFXVariableDraftRuleListCtrl.h"
#include "MFXWTBasedOnSizeAndWeightListCtrl.h"
#include "resource.h"

#include <functional>
#include <random>

namespace {

constexpr UINT kGroupListId = 29113;

class MaterialGridTest : public GridTest<CMFXUWTRuleListCtrl> {
  protected:
    MaterialGridTest() {
        m_grid.InitColumns({L"Material", L"Min", L"Max"});
        Fill(3);
        m_grid.SetComboItems({L"Steel", L"Zinc", L"000"});
        m_grid.SetMaterialDefaults({L"Steel", L"Steel"}, {L"4", L"9"}, {L"6", L"9"});
    }
    void Choose(int nRow, int nItem) {
        Click(nRow, 0, WM_LBUTTONDBLCLK);
        ASSERT_TRUE(IsVisible(10015));
        Combo().SendMessage(CB_SETCURSEL, static_cast<WPARAM>(nItem));
    }
};

class DraftGridTest : public GridTest<CMFXVariableDraftRuleListCtrl> {};

class SizeAndWeightGridTest : public GridTest<CMFXWTBasedOnSizeAndWeightListCtrl> {
  protected:
    void ShowGroups() {
        Create(kGroupListId);
        m_grid.InitGroupColumns({L"Group"});
        Fill(1);
        m_grid.SetCellText(1, 0, L"Default");
    }
    void ShowBands() {
        Create(IDC_SIZE_WEIGHT_BANDS);
        m_grid.InitBandColumns({L"", L"1", L"2", L"3", L"4", L"5"});
        Fill(6);
    }
};

template <class Grid>
std::vector<int> Widths(const Grid& grid, int nColumns) {
    std::vector<int> widths;
    for (int i = 0; i < nColumns; ++i) widths.push_back(grid.GetColumnWidth(i));
    return widths;
}

}  // namespace

TEST_F(MaterialGridTest, ChoosingAMaterialBringsItsLimits) {
    EXPECT_EQ(Widths(m_grid, 3), (std::vector<int>{200, 120, 120}));
    m_grid.InitColumns({L"more"});
    EXPECT_EQ(m_grid.GetHeaderCtrl()->GetItemCount(), 3);
    Choose(1, 0);
    Combo().SendMessage(CB_SHOWDROPDOWN, TRUE);
    Photograph(L"materials-drop-down");
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_STREQ(Row(1), L"Steel|4|6") << "the first of two defaults";
    m_grid.SetCellText(1, 1, L"5");
    Click(3, 0);
    EXPECT_STREQ(Row(1), L"Steel|4|6") << "applied again by the next click";
    Choose(2, 1);
    Click(3, 0);
    EXPECT_STREQ(Row(2), L"Zinc||") << "a material without defaults";
    Choose(2, 2);
    m_boxes.Expect(L"000 is in the table already.");
    EXPECT_TRUE(Press(VK_RETURN)) << "or Enter would close the dialog";
    EXPECT_STREQ(Row(2), L"Zinc||");
    Choose(2, 0);
    EXPECT_TRUE(Press(VK_ESCAPE));
    EXPECT_FALSE(IsVisible(10015));
    Click(3, 0);
    EXPECT_STREQ(Row(2), L"Zinc||");
}

TEST_F(MaterialGridTest, ClicksCommitWithChecksAndKeysWithout) {
    Click(1, 1);
    EXPECT_TRUE(IsEditing(1, 1));
    EXPECT_EQ(m_grid.GetSelectedCount(), 0u) << "the click is not passed on";
    Photograph(L"materials-editor");
    Editor().SetWindowText(L"999");
    m_boxes.Expect(L"The maximum is below the minimum.", MB_ICONEXCLAMATION);
    Click(2, 2);
    m_boxes.Verify();
    EXPECT_STREQ(Row(1), L"100||102");
    EXPECT_TRUE(IsEditing(2, 2));
    Editor().SetWindowText(L"1");
    EXPECT_TRUE(Press(VK_TAB) == 0 && Press(VK_DOWN));
    EXPECT_STREQ(Row(2), L"200|201|1") << "no check";
    EXPECT_TRUE(IsEditing(3, 2) && Press(VK_UP) && IsEditing(2, 2) && Press(VK_LEFT) && IsEditing(2, 1));
    m_boxes.Expect(L"The maximum is below the minimum.", MB_ICONEXCLAMATION);
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_STREQ(Row(2), L"200||1");

    m_grid.SetCellText(4, 0, L"");
    m_boxes.Expect(L"The maximum is below the minimum.",
                   MB_ICONEXCLAMATION);  // the hidden editor's text again
    Click(4, 1);
    m_boxes.Verify();
    EXPECT_FALSE(IsVisible(10014)) << "no material, no limits";
    EXPECT_EQ(m_grid.GetSelectedCount(), 1u);
    Click(3, 1, WM_LBUTTONDBLCLK);
    EXPECT_FALSE(IsVisible(10015));
}

TEST_F(MaterialGridTest, DeletesRowsOnlyBeforeTheFirstEditing) {
    EXPECT_FALSE(Press(VK_UP) || Press(VK_DOWN) || Press(VK_RETURN) || Press(VK_ESCAPE));
    Click(1, 0);
    EXPECT_TRUE(Press(VK_DELETE));
    EXPECT_STREQ(Row(1), L"||");
    Click(2, 1);
    m_grid.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_FALSE(Press(VK_DELETE));
    EXPECT_STREQ(Row(2), L"200|201|202");
}

TEST_F(DraftGridTest, HasItsColumnsAndOpensTheEditorOnEveryRow) {
    const auto columns = [this](auto init) {
        Create(1);
        init();
        return Widths(m_grid, 6);
    };
    const std::vector<CString> headers(6, L"h");
    EXPECT_EQ(columns([&] { m_grid.InitColumns(headers, 50, 70); }),
              (std::vector<int>{12, 50, 70, 50, 50, 50}));
    EXPECT_EQ(columns([&] { m_grid.InitColumns(headers, 50, 0); }),
              (std::vector<int>{12, 50, 50, 50, 50, 50}));
    EXPECT_EQ(columns([&] { m_grid.InitWideColumns(headers); }),
              (std::vector<int>{30, 200, 200, 75, 200, 200}));
    EXPECT_EQ(columns([&] { m_grid.InitBandColumns(headers); }),
              (std::vector<int>{12, 60, 60, 134, 130, 111}));
    Fill(1, 200);
    Click(7, 5);
    EXPECT_TRUE(IsEditing(7, 5)) << "also in an empty row";
    Photograph(L"draft-angles-editor");
    Editor().SetWindowText(L"3.5");
    Click(0, 1);
    EXPECT_TRUE(IsEditing(0, 1));
    EXPECT_STREQ(Cell(7, 5), L"3.5");
    Click(0, 0);
    EXPECT_EQ(m_grid.GetSelectedCount(), 1u);
    BOOL bHandled = TRUE;
    MSG msg = KeyMessage(L'A');
    m_grid.HandleKeyDown(&msg, &bHandled);
    EXPECT_FALSE(bHandled);
    msg = KeyMessage(VK_RIGHT);
    m_grid.HandleKeyDown(&msg, &bHandled);
    EXPECT_TRUE(bHandled && IsEditing(0, 2));
}

TEST_F(DraftGridTest, KnowsDefaultsAndNonNegativeNumbers) {
    EXPECT_FALSE(m_grid.IsNotDefaultText(L"Default"));
    EXPECT_TRUE(m_grid.IsNotDefaultText(L"default") && m_grid.IsNotDefaultText(L""));
    for (const LPCWSTR pszText : {L"0", L"-0.0000005", L"3.5", L"1e3"})
        EXPECT_TRUE(m_grid.IsNonNegativeText(pszText));
    for (const LPCWSTR pszText : {L"", L"-1", L"-0.00001"}) EXPECT_FALSE(m_grid.IsNonNegativeText(pszText));
}

TEST_F(SizeAndWeightGridTest, GroupListNamesAndSelectsGroups) {
    ShowGroups();
    Click(0, 0, WM_LBUTTONDBLCLK);
    EXPECT_FALSE(IsVisible(10015)) << "nothing to choose from yet";
    Click(0, 0);
    EXPECT_EQ(m_dialog.m_nAsked, 1);
    EXPECT_STREQ(m_dialog.TakeNotified(), L"100:000;");
    EXPECT_TRUE(m_grid.GetLastHitRow() == 0 && m_grid.GetLastHitCol() == 0);
    m_grid.SendMessage(WM_KEYDOWN, VK_DOWN);
    EXPECT_STREQ(m_dialog.TakeNotified(), L"100:Default;");
    m_grid.SetComboItems({L"Steel", L"000", L"Zinc"});
    Click(1, 0, WM_LBUTTONDBLCLK);
    EXPECT_FALSE(IsVisible(10015)) << "the default group keeps its name";

    Click(3, 0, WM_LBUTTONDBLCLK);
    ASSERT_TRUE(IsVisible(10015));
    Combo().SendMessage(CB_SHOWDROPDOWN, TRUE);
    Photograph(L"groups-drop-down");
    Combo().SendMessage(CB_SETCURSEL, 2);
    m_dialog.TakeNotified();
    EXPECT_FALSE(Press(VK_DOWN) || Press(VK_UP) || Press(VK_RIGHT)) << "keys of the drop-down list";
    Click(4, 0);
    EXPECT_STREQ(m_dialog.TakeNotified(), L"103:Zinc;100:400;");
    EXPECT_STREQ(Cell(3, 0), L"Zinc");
    Click(4, 0);
    EXPECT_STREQ(m_dialog.TakeNotified(), L"100:400;") << "the name is told once";
    EXPECT_FALSE(Press(VK_RETURN)) << "nothing to commit: Enter is the dialog's";
    Click(2, 0, WM_LBUTTONDBLCLK);
    Combo().SendMessage(CB_SETCURSEL, 0);
    m_dialog.TakeNotified();
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_STREQ(m_dialog.TakeNotified(), L"103:Steel;");
    Click(2, 0, WM_LBUTTONDBLCLK);
    Combo().SendMessage(CB_SETCURSEL, 1);
    m_boxes.Expect(L"000 is in the table already.");
    m_dialog.TakeNotified();
    Click(2, 0);
    EXPECT_STREQ(m_dialog.TakeNotified(), L"100:Steel;") << "selected, but not named";
    m_boxes.Verify();
    Click(3, 0);
    EXPECT_STREQ(m_dialog.TakeNotified(), L"100:Zinc;");
    EXPECT_TRUE(m_grid.GetLastHitRow() == 3 && m_grid.GetLastHitCol() == 0);
    m_grid.SendMessage(WM_CHAR, L'S', 1);
    EXPECT_STREQ(m_dialog.TakeNotified(), L"100:Steel;") << "found by its first letter";
    EXPECT_STREQ(Cell(2, 0), L"Steel");
}

TEST_F(SizeAndWeightGridTest, BandGridTellsOfCommittedCells) {
    ShowBands();
    Click(2, 5);
    EXPECT_TRUE(IsEditing(2, 5));
    Photograph(L"bands-editor");
    Editor().SetWindowText(L"1");
    Click(3, 1);
    EXPECT_TRUE(IsEditing(3, 1));
    EXPECT_STREQ(m_dialog.TakeNotified(), L"101:1;");
    Editor().SetWindowText(L"2");
    EXPECT_TRUE(Press(VK_TAB) && IsEditing(3, 2));
    EXPECT_STREQ(m_dialog.TakeNotified(), L"101:2;");
    Editor().SetWindowText(L"9");
    EXPECT_TRUE(Press(VK_ESCAPE));
    Click(0, 0);
    EXPECT_STREQ(m_dialog.TakeNotified(), L"") << "nothing new was committed, and bands are no groups";
    EXPECT_STREQ(Cell(3, 2), L"302") << "what was cancelled does not come back";
    m_grid.SetCellText(1, 1, L"abc");
    Click(1, 1);
    Click(0, 0);
    EXPECT_STREQ(Cell(1, 1), L"");
    EXPECT_STREQ(m_dialog.TakeNotified(), L"101:;");
}

namespace {

// Keys, clicks and characters at random: nothing may crash or hang.
void Storm(const std::function<void(int, int, UINT)>& click, CMFXListCtrl& grid,
           const std::function<void(MSG&)>& handleKey) {
    std::mt19937 random(7);
    const auto pick = [&](int nEnd) { return static_cast<int>(random() % static_cast<unsigned>(nEnd)); };
    constexpr WPARAM kKeys[] = {VK_TAB,   VK_RETURN, VK_ESCAPE, VK_LEFT, VK_UP,
                                VK_RIGHT, VK_DOWN,   VK_DELETE, L'5'};
    for (int i = 0; i < 600; ++i) {
        MSG msg{nullptr, WM_KEYDOWN, kKeys[pick(9)], 0, 0, {}};
        const int nRow = pick(7), nCol = pick(6);
        switch (pick(5)) {
            case 0:
                click(nRow, nCol, WM_LBUTTONDOWN);
                break;
            case 1:
                click(nRow, nCol, WM_LBUTTONDOWN);
                click(nRow, nCol, WM_LBUTTONDBLCLK);
                break;
            case 2:
                if (CWnd* const pFocus = CWnd::GetFocus()) pFocus->SendMessage(WM_CHAR, L"0123.x"[nCol], 1);
                break;
            case 3:
                grid.SendMessage(WM_VSCROLL, MAKEWPARAM(pick(2) ? SB_LINEDOWN : SB_LINEUP, 0));
                break;
            default:
                handleKey(msg);
        }
    }
    EXPECT_EQ(grid.GetItemCount(), 5);
}

}  // namespace

TEST_F(MaterialGridTest, SurvivesAnything) {
    m_boxes.AnswerAll();
    Storm([this](auto... at) { Click(at...); }, m_grid, [this](MSG& msg) { m_grid.HandleKeyDown(&msg); });
}

TEST_F(DraftGridTest, SurvivesAnything) {
    m_grid.InitBandColumns(std::vector<CString>(6, L"h"));
    Fill(6);
    BOOL bHandled = FALSE;
    Storm([this](auto... at) { Click(at...); }, m_grid,
          [&](MSG& msg) { m_grid.HandleKeyDown(&msg, &bHandled); });
}

TEST_F(SizeAndWeightGridTest, SurvivesAnything) {
    m_boxes.AnswerAll();
    for (const bool bBands : {true, false}) {
        bBands ? ShowBands() : ShowGroups();
        m_grid.SetComboItems({L"Steel", L"000", L"Zinc"});
        Storm([this](auto... at) { Click(at...); }, m_grid, [this](MSG& msg) { m_grid.HandleKeyDown(&msg); });
    }
}
