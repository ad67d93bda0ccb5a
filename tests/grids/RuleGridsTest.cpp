#include "GridTest.h"
#include "MFXUWTRuleListCtrl.h"
#include "MFXVariableDraftRuleListCtrl.h"
#include "MFXWTBasedOnSizeAndWeightListCtrl.h"
#include "resource.h"

using testing::ElementsAre;

namespace {

constexpr UINT kGroupListId = 29113;

class MaterialGridTest : public GridTest<CMFXUWTRuleListCtrl> {
  protected:
    MaterialGridTest() {
        m_grid.InitColumns({L"Material", L"Minimum [mm]", L"Maximum [mm]"});
        Fill(3);
        m_grid.SetComboItems({L"Steel", L"Zinc", L"000"});
        m_grid.SetMaterialDefaults({L"Steel", L"Steel"}, {L"4", L"9"}, {L"6", L"9"});
    }
    void ExpectInverted() { m_boxes.Expect(L"The maximum is below the minimum.", MB_ICONEXCLAMATION); }
};

using DraftGridTest = GridTest<CMFXVariableDraftRuleListCtrl>;

class SizeAndWeightGridTest : public GridTest<CMFXWTBasedOnSizeAndWeightListCtrl> {
  protected:
    void ShowGroups() {
        Create(kGroupListId);
        m_grid.InitGroupColumns({L"Material group"});
        Fill(1);
        m_grid.SetCellText(1, 0, L"Default");
    }
    void ShowBands() {
        Create(IDC_SIZE_WEIGHT_BANDS);
        m_grid.InitBandColumns({L"", L"From [mm]", L"To [mm]", L"From [kg]", L"To [kg]", L"Minimum [mm]"});
        Fill(6);
    }
    template <class... Notices>
    void ExpectNotices(const Notices&... notices) {
        EXPECT_THAT(m_dialog.TakeNotices(), ElementsAre(notices...));
    }
};

GridNotice Selected(LPCWSTR pszGroup) {
    return {GridGroupSelected, pszGroup};
}
GridNotice Named(LPCWSTR pszGroup) {
    return {GridGroupNamed, pszGroup};
}
GridNotice Committed(LPCWSTR pszText) {
    return {GridCellCommitted, pszText};
}

}  // namespace

TEST_F(MaterialGridTest, ChoosingAMaterialBringsItsLimits) {
    m_grid.InitColumns({L"more"});
    EXPECT_EQ(m_grid.GetHeaderCtrl()->GetItemCount(), 3);
    Choose(1, 0);
    Combo().SendMessage(CB_SHOWDROPDOWN, TRUE);
    Photograph(L"materials-drop-down");
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_THAT(Row(1), ElementsAre(L"Steel", L"4", L"6")) << "the first of two defaults";
    m_grid.SetCellText(1, 1, L"5");
    Click(3, 0);
    EXPECT_STREQ(Cell(1, 1), L"4") << "applied again by the next click";
    Choose(2, 1);
    Click(3, 0);
    EXPECT_THAT(Row(2), ElementsAre(L"Zinc", L"", L"")) << "a material without defaults";
    Choose(2, 2);
    m_boxes.Expect(L"000 is in the table already.");
    EXPECT_TRUE(Press(VK_RETURN)) << "or Enter would close the dialog";
    Click(3, 0);  // does not refuse it again
    Choose(2, 0);
    EXPECT_TRUE(Press(VK_ESCAPE));
    EXPECT_FALSE(IsVisible(kComboId));
    Click(3, 0);
    EXPECT_THAT(Row(2), ElementsAre(L"Zinc", L"", L"")) << "neither refused nor cancelled";
}

TEST_F(MaterialGridTest, KeysInTheDropDownNeverWriteWhatWasTypedElsewhere) {
    Edit(3, 1, L"7");
    Press(VK_RETURN);
    Choose(1, 0);
    for (const WPARAM nKey : {VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT}) EXPECT_FALSE(Press(nKey)) << nKey;
    EXPECT_TRUE(IsVisible(kComboId));
    EXPECT_THAT(Row(1), ElementsAre(L"100", L"101", L"102"));
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_THAT(Row(1), ElementsAre(L"Steel", L"4", L"6"));
    ExpectEditing(1, 1);
    Choose(2, 1);
    EXPECT_TRUE(Press(VK_RETURN));
    for (const WPARAM nKey : {VK_ESCAPE, VK_DOWN, VK_RIGHT}) EXPECT_TRUE(Press(nKey)) << nKey;
    EXPECT_STREQ(Cell(2, 0), L"Zinc");
    ExpectEditing(2, 1);
}

TEST_F(MaterialGridTest, ClicksCommitWithChecksAndKeysWithout) {
    Click(1, 1);
    ExpectEditing(1, 1);
    EXPECT_EQ(m_grid.GetSelectedCount(), 0u) << "the click is not passed on";
    Photograph(L"materials-editor");
    Editor().SetWindowText(L"999");
    ExpectInverted();
    Click(2, 2);
    m_boxes.Verify();
    EXPECT_STREQ(Cell(1, 1), L"");
    ExpectEditing(2, 2);
    Editor().SetWindowText(L"1");
    EXPECT_FALSE(Press(VK_TAB));
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_THAT(Row(2), ElementsAre(L"200", L"201", L"1")) << "no check";
    ExpectEditing(3, 2);
    EXPECT_TRUE(Press(VK_UP));
    EXPECT_TRUE(Press(VK_LEFT));
    ExpectEditing(2, 1);
    ExpectInverted();
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_THAT(Row(2), ElementsAre(L"200", L"", L"1"));

    m_grid.SetCellText(4, 0, L"");
    Click(4, 1);  // does not refuse the old text again
    EXPECT_FALSE(IsVisible(kEditorId)) << "no material, no limits";
    EXPECT_EQ(m_grid.GetSelectedCount(), 1u);
    Click(3, 1, WM_LBUTTONDBLCLK);
    EXPECT_FALSE(IsVisible(kComboId));
}

TEST_F(MaterialGridTest, DeletesRowsOnlyBeforeTheFirstEditing) {
    Click(1, 0);
    EXPECT_TRUE(Press(VK_DELETE));
    EXPECT_THAT(Row(1), testing::Each(CString()));
    Click(2, 1);
    m_grid.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_FALSE(Press(VK_DELETE));
    EXPECT_STREQ(Cell(2, 0), L"200");
    m_grid.ForgetEditedCell();
    ExpectKeysUntaken();
}

TEST_F(DraftGridTest, OpensTheEditorOnEveryRow) {
    m_grid.InitBandColumns({L"", L"From", L"To", L"Angle 1", L"Angle 2", L"Angle 3"});
    Fill(6, 10);
    Click(7, 5);
    ExpectEditing(7, 5);
    EXPECT_FALSE(Press(VK_DELETE)) << "it deletes characters, no row";
    Photograph(L"draft-angles-editor");
    Click(0, 0);
    EXPECT_EQ(m_grid.GetSelectedCount(), 1u);
}

TEST_F(DraftGridTest, KnowsDefaultsAndNonNegativeNumbers) {
    EXPECT_FALSE(m_grid.IsNotDefaultText(L"Default"));
    for (const LPCWSTR pszText : {L"default", L""}) EXPECT_TRUE(m_grid.IsNotDefaultText(pszText)) << pszText;
    for (const LPCWSTR pszText : {L"0", L"-0.0000005", L"3.5", L"1e3", L" 5 mm", L"abc"})
        EXPECT_TRUE(m_grid.IsNonNegativeText(pszText)) << pszText;
    for (const LPCWSTR pszText : {L"", L"-1", L"-0.00001", L"-.5", L" -5 mm", L"-1e400"})
        EXPECT_FALSE(m_grid.IsNonNegativeText(pszText)) << pszText;
}

TEST_F(SizeAndWeightGridTest, GroupListSelectsGroups) {
    ShowGroups();
    Click(0, 0, WM_LBUTTONDBLCLK);
    EXPECT_FALSE(IsVisible(kComboId)) << "nothing to choose from yet";
    Click(0, 0);
    EXPECT_EQ(m_dialog.m_nAsked, 1);
    ExpectNotices(Selected(L"000"));
    m_grid.SendMessage(WM_KEYDOWN, VK_DOWN);
    ExpectNotices(Selected(L"Default"));
    m_grid.SetCellText(2, 0, L"Steel");
    m_grid.SendMessage(WM_CHAR, L'S', 1);
    ExpectNotices(Selected(L"Steel"));
    Click(3, 0);
    ExpectNotices(Selected(L"300"));
    EXPECT_EQ(m_grid.GetLastHitRow(), 3);
    EXPECT_EQ(m_grid.GetLastHitCol(), 0);
}

TEST_F(SizeAndWeightGridTest, GroupListNamesGroups) {
    ShowGroups();
    m_grid.SetComboItems({L"Steel", L"000", L"Zinc"});
    Click(1, 0, WM_LBUTTONDBLCLK);
    EXPECT_FALSE(IsVisible(kComboId)) << "the default group keeps its name";
    Choose(3, 2);
    Combo().SendMessage(CB_SHOWDROPDOWN, TRUE);
    Photograph(L"groups-drop-down");
    for (const WPARAM nKey : {VK_DOWN, VK_UP, VK_RIGHT})
        EXPECT_FALSE(Press(nKey)) << nKey << " is the drop-down list's";
    m_dialog.m_atNotice = [&](int nCode) {
        if (nCode != GridGroupNamed) return;
        EXPECT_STREQ(Cell(m_grid.GetEditRow(), m_grid.GetEditCol()), m_dialog.m_notices.back().strText);
        EXPECT_EQ(m_grid.GetLastHitRow(), m_grid.GetEditRow());
        EXPECT_EQ(m_grid.GetLastHitCol(), 0);
    };
    Click(4, 0);
    ExpectNotices(Named(L"Zinc"), Selected(L"400"));
    EXPECT_STREQ(Cell(3, 0), L"Zinc");
    Click(4, 0);
    ExpectNotices(Selected(L"400"));
    EXPECT_FALSE(Press(VK_RETURN)) << "nothing to commit: Enter is the dialog's";
    Choose(2, 0);
    EXPECT_TRUE(Press(VK_RETURN));
    ExpectNotices(Named(L"Steel"));
    Choose(2, 1);
    m_boxes.Expect(L"000 is in the table already.");
    Click(2, 0);
    ExpectNotices(Selected(L"Steel"));
    m_boxes.Verify();
    Click(3, 0);
    ExpectNotices(Selected(L"Zinc"));
}

TEST_F(SizeAndWeightGridTest, BandGridTellsOfCommittedCells) {
    ShowBands();
    Click(2, 5);
    ExpectEditing(2, 5);
    const int nTextLeft = static_cast<short>(LOWORD(Editor().SendMessage(EM_POSFROMCHAR, 0)));
    EXPECT_GT(nTextLeft, PlaceOf(Editor()).Width() / 4) << "in the middle, as in the column";
    Photograph(L"bands-editor");
    Editor().SetWindowText(L"1");
    Click(3, 1);
    ExpectEditing(3, 1);
    ExpectNotices(Committed(L"1"));
    Editor().SetWindowText(L"2");
    EXPECT_TRUE(Press(VK_TAB));
    ExpectEditing(3, 2);
    ExpectNotices(Committed(L"2"));
    Editor().SetWindowText(L"9");
    EXPECT_TRUE(Press(VK_ESCAPE));
    Click(0, 0);
    ExpectNotices(GridNotice{GridCellTyped, L"302"});  // nothing was committed, and bands are no groups
    EXPECT_STREQ(Cell(3, 2), L"302") << "what was cancelled does not come back";
    m_grid.SetCellText(1, 1, L"abc");
    Click(1, 1);
    Click(0, 0);
    EXPECT_STREQ(Cell(1, 1), L"");
    ExpectNotices(Committed(L""));
    Click(1, 1);
    m_dialog.m_atNotice = [](int) { throw std::runtime_error("dialog"); };
    m_boxes.Expect(L"dialog", MB_ICONSTOP);
    EXPECT_TRUE(Press(VK_RETURN)) << "or Enter would close the dialog";
}

TEST_F(MaterialGridTest, SurvivesAnything) {
    Storm();
}

TEST_F(SizeAndWeightGridTest, SurvivesAnything) {
    for (const bool bBands : {true, false}) {
        bBands ? ShowBands() : ShowGroups();
        m_grid.SetComboItems({L"Steel", L"000", L"Zinc"});
        Storm();
    }
}
