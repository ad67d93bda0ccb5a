#include "DialogTest.h"
#include "GridUser.h"
#include "MFXConstraint.h"
#include "RuleParameters.h"
#include "resource.h"

namespace {

struct UniformThicknessDlgTest : DialogTest {
    UniformThicknessDlgTest() : DialogTest(L"english") {}

    void Open(const std::function<void(DialogUser&, GridUser&)>& act) {
        Configure(m_rule, [&](DialogUser& user) {
            GridUser grid(user, IDC_UNIFORM_MATERIALS);
            act(user, grid);
        });
    }

    static void Check(DialogUser& user, int nControlId, bool bOn) {
        SendMessageW(user.Control(nControlId), BM_SETCHECK, bOn ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    static bool IsChecked(const DialogUser& user, int nControlId) {
        return IsDlgButtonChecked(user.Window(), nControlId) == BST_CHECKED;
    }
    static void SetRow(GridUser& grid, int nRow, LPCWSTR pszMaterial, LPCWSTR pszMinimum,
                       LPCWSTR pszMaximum) {
        grid.SetCell(nRow, 0, pszMaterial);
        grid.SetCell(nRow, 1, pszMinimum);
        grid.SetCell(nRow, 2, pszMaximum);
    }
    static double& Number(const MfxParamArray& params, long nParamId) {
        return FindParameter(params, nParamId)->GetValues<double>()[0];
    }
    double& Common(long nParamId) { return Number(m_rule.m_paramArray, nParamId); }
    CMFXConstraint& Material(int nIndex) { return *m_rule.m_constraintArray[nIndex]; }

    CMfxRule& m_rule = Rule(19010);
};

}  // namespace

TEST_F(UniformThicknessDlgTest, ChoosesMaterialsByKeysAlone) {
    Open([&](DialogUser& user, GridUser& grid) {
        EXPECT_STREQ(user.TextOf(IDC_UNIFORM_MINIMUM), L"6.0");
        EXPECT_STREQ(user.TextOf(IDC_UNIFORM_MAXIMUM_UNIT), L"mm");
        EXPECT_TRUE(IsChecked(user, IDC_UNIFORM_COMMON));
        user.Press(L'M', VK_MENU);
        user.Press(L'G', VK_MENU);
        user.Press(VK_DOWN);  // to the group "Iron"
        user.Press(VK_TAB);
        user.Press(VK_TAB);
        EXPECT_EQ(GetFocus(), user.Control(IDC_UNIFORM_MATERIALS));
        user.Press(VK_F2);
        EXPECT_EQ(grid.ChoiceCount(), 7) << "five usual ones and two of the group";
        user.Press(VK_DOWN);
        user.Press(VK_RETURN);
        EXPECT_STREQ(grid.Cell(0, 1), L"4.76");
        EXPECT_STREQ(grid.Cell(0, 2), L"6.35");
        user.Press(VK_DOWN);
        user.Press(VK_F2);
        user.Press(VK_END);
        user.Press(VK_TAB);
        EXPECT_STREQ(grid.Cell(1, 0), L"Iron B");
        user.Type(L"3");
        user.Press(VK_TAB);
        user.Type(L"7.5");
        user.ClickOn(IDOK);
    });
    ASSERT_EQ(m_rule.m_constraintArray.GetCount(), 2);
    EXPECT_STREQ(Material(0).m_strName, L"Steel");
    EXPECT_STREQ(Material(1).m_strName, L"Iron B");
    EXPECT_EQ(Number(Material(1).m_paramArray, kThicknessMinId), 3.0);
    EXPECT_EQ(Number(Material(1).m_paramArray, kThicknessMaxId), 7.5);
    EXPECT_TRUE(Material(1).m_bActive);
    EXPECT_STREQ(m_rule.m_strSummary, L"Wall thickness limits by material");
}

TEST_F(UniformThicknessDlgTest, KeepsWhatWasChosenInAnotherGroup) {
    Open([&](DialogUser& user, GridUser& grid) {
        SetRow(grid, 3, L"Unobtainium", L"2", L"3");
        for (const bool bSteel : {false, true}) {
            SetFocus(user.Control(IDC_UNIFORM_GROUP));
            user.Press(bSteel ? VK_UP : VK_DOWN);  // "Iron", then "Steel" again
            if (!bSteel) grid.Choose(0, L"Iron A");
        }
        grid.Click(1, 0);
        EXPECT_STREQ(grid.Cell(0, 1), L"5.08") << "0.2 inches";
        EXPECT_STREQ(grid.Cell(0, 2), L"12.7");
        grid.DoubleClick(3, 0);
        grid.Click(1, 0);
        EXPECT_STREQ(grid.Cell(3, 0), L"Unobtainium") << "it was not changed";
        EXPECT_STREQ(grid.Cell(3, 2), L"3");
        user.ClickOn(IDCANCEL);
    });
}

TEST_F(UniformThicknessDlgTest, KeepsBothKindsOfLimits) {
    Common(kThicknessMinId) = 1.23456789;
    Open([&](DialogUser& user, GridUser& grid) {
        SetRow(grid, 3, L"Unobtainium", L"2", L"3");
        Check(user, IDC_UNIFORM_MAXIMUM_ON, false);
        user.Enter(IDC_UNIFORM_MAXIMUM, L"");
        user.ClickOn(IDOK);
    });
    EXPECT_EQ(Common(kThicknessMinId), 1.23456789) << "digits that are not shown stay";
    EXPECT_EQ(Common(kThicknessMaxId), 16.0) << "a limit that is off keeps its number";
    EXPECT_FALSE(FindParameter(m_rule.m_paramArray, kThicknessMaxId)->m_bStatus);
    ASSERT_EQ(m_rule.m_constraintArray.GetCount(), 1);
    EXPECT_FALSE(Material(0).m_bActive);
    EXPECT_STREQ(m_rule.m_strSummary, L"Minimum wall thickness: 1.234568 mm  ");
    Number(Material(0).m_paramArray, kThicknessMaxId) = 3.00000001;
    Open([&](DialogUser& user, GridUser& grid) {
        EXPECT_STREQ(grid.Cell(0, 0), L"Unobtainium");
        EXPECT_FALSE(IsChecked(user, IDC_UNIFORM_MAXIMUM_ON));
        user.ClickOn(IDC_UNIFORM_BY_MATERIAL);
        user.ClickOn(IDOK);
    });
    EXPECT_TRUE(Material(0).m_bActive);
    EXPECT_EQ(Number(Material(0).m_paramArray, kThicknessMaxId), 3.00000001);
    Open([&](DialogUser& user, GridUser& grid) {
        EXPECT_TRUE(IsChecked(user, IDC_UNIFORM_BY_MATERIAL));
        grid.Click(0, 1);
        user.Press(VK_RETURN);
        user.ClickOn(IDC_UNIFORM_DELETE_ROWS);
        EXPECT_STRNE(grid.Cell(0, 0), L"") << "neither selected nor edited";
        grid.Click(0, 1);
        user.ClickOn(IDC_UNIFORM_DELETE_ROWS);
        user.ClickOn(IDC_UNIFORM_COMMON);
        user.ClickOn(IDOK);
    });
    EXPECT_TRUE(m_rule.m_constraintArray.IsEmpty());
}

TEST_F(UniformThicknessDlgTest, RefusesLimitsAndShowsWhere) {
    const struct {
        std::function<void(DialogUser&, GridUser&)> edit;
        LPCWSTR pszMessage;
        int nFocus, nRow, nCol;  // the control with the cursor, or a cell of the grid
    } kCases[] = {
        {[](DialogUser& user, GridUser&) { user.Enter(IDC_UNIFORM_MINIMUM, L"0"); },
         L"Minimum wall thickness: enter a number above zero, or switch the limit off.", IDC_UNIFORM_MINIMUM,
         0, 0},
        {[](DialogUser& user, GridUser&) { user.Enter(IDC_UNIFORM_MAXIMUM, L"5"); },
         L"The maximum is below the minimum.", IDC_UNIFORM_MAXIMUM, 0, 0},
        {[](DialogUser&, GridUser& grid) { SetRow(grid, 40, L"", L"1", L"2"); },
         L"Row 41 has limits and no material. Choose a material, or delete the row.", 0, 40, 0},
        {[](DialogUser&, GridUser& grid) { SetRow(grid, 1, L"Steel", L"1", L""); },
         L"Row 2: enter the minimum and the maximum as numbers above zero.", 0, 1, 2},
        {[](DialogUser&, GridUser& grid) { SetRow(grid, 0, L"Steel", L"3", L"2"); },
         L"Row 1: the maximum is below the minimum.", 0, 0, 2},
        {[](DialogUser&, GridUser& grid) {
             for (const int nRow : {2, 5}) SetRow(grid, nRow, L"Steel", L"1", L"2");
         },
         L"Row 6: this material is in the table already.", 0, 5, 0},
        {[](DialogUser& user, GridUser&) { user.ClickOn(IDC_UNIFORM_BY_MATERIAL); },
         L"There is no material in the table. Choose one, or choose limits for all materials.",
         IDC_UNIFORM_MATERIALS, 0, 0},
    };
    for (const auto& test : kCases)
        Open([&](DialogUser& user, GridUser& grid) {
            SCOPED_TRACE(CString(test.pszMessage).GetString());
            test.edit(user, grid);
            m_boxes.Expect(test.pszMessage, MB_ICONINFORMATION);
            user.ClickOn(IDOK);
            m_boxes.Verify();
            EXPECT_TRUE(user.IsOpen());
            if (test.nFocus)
                EXPECT_EQ(GetFocus(), user.Control(test.nFocus));
            else if (test.nCol > 0)
                grid.ExpectCursorIn(test.nRow, test.nCol);
            else
                grid.ExpectListIn(test.nRow);
            user.ClickOn(IDCANCEL);
        });
    EXPECT_TRUE(m_rule.m_constraintArray.IsEmpty());
    EXPECT_EQ(Common(kThicknessMinId), 6.0);
    EXPECT_EQ(Common(kThicknessMaxId), 16.0);
}

TEST_F(UniformThicknessDlgTest, WorksWithoutADatabase) {
    mfx_db::MFXDataHelper::getInstance().SetCollector(nullptr);
    Open([](DialogUser& user, GridUser& grid) {
        grid.DoubleClick(0, 0);
        EXPECT_EQ(grid.ChoiceCount(), 5);
        SendDlgItemMessageW(user.Control(IDC_UNIFORM_MATERIALS), GridUser::kComboId, CB_SETCURSEL, 0, 0);
        grid.Click(0, 1);
        EXPECT_STREQ(grid.Cell(0, 1), L"3.18");
        user.Press(VK_LEFT);
        user.Press(VK_ESCAPE);
        user.ClickOn(IDCANCEL);
    });
    DeleteParameters(m_rule.m_paramArray);
    m_boxes.Expect(L"This rule can't be edited: its value or a part of the dialog is missing.",
                   MB_ICONEXCLAMATION);
    Open([](DialogUser& user, GridUser&) {
        EXPECT_FALSE(IsWindowEnabled(user.Control(IDOK)));
        user.Press(VK_ESCAPE);
    });
}
