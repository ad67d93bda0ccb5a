#include "DialogTest.h"
#include "MFXUnitConvertor.h"
#include "RuleParameters.h"
#include "resource.h"

namespace {

constexpr int kRuleId = 19030;

class SCWTVariationDlgTest : public DialogTest {
  protected:
    SCWTVariationDlgTest() { LoadModule(L"english"); }

    CMfxRule& Rule() { return DialogTest::Rule(kRuleId); }
    MfxArray<double>& Values() { return Rule().FindParameterInArray(kVariationId)->GetValues<double>(); }
    double Value() { return Values()[0]; }

    static int SelectedUnit(const DialogUser& user) {
        return static_cast<int>(SendMessageW(user.Control(IDC_VARIATION_LENGTH_UNIT), CB_GETCURSEL, 0, 0));
    }
    static void SelectUnit(const DialogUser& user, int nIndex) {
        SendMessageW(user.Control(IDC_VARIATION_LENGTH_UNIT), CB_SETCURSEL, static_cast<WPARAM>(nIndex), 0);
    }
};

}  // namespace

TEST_F(SCWTVariationDlgTest, ShowsValueAndUnitAndStoresThemByOk) {
    Configure(Rule(), [&](DialogUser& user) {
        EXPECT_STREQ(user.TextOf(IDC_VARIATION_VALUE), L"25.0");
        EXPECT_EQ(SelectedUnit(user), 0);
        EXPECT_EQ(GetFocus(), user.Control(IDC_VARIATION_VALUE)) << "the first control in tab order";
        user.Enter(IDC_VARIATION_VALUE, L"12.5");
        user.Press(VK_TAB);
        user.Press(VK_DOWN);
        user.Press(VK_DOWN);
        user.Press(VK_TAB);
        EXPECT_EQ(GetFocus(), user.Control(IDOK));
        user.Press(VK_SPACE);
        EXPECT_FALSE(user.IsOpen());
    });
    EXPECT_EQ(Value(), 12.5);
    EXPECT_EQ(Rule().m_nLengthUnit, LengthInch);
    EXPECT_STREQ(Rule().m_strSummary, L"Wall thickness may vary by at most 12.5");
}

TEST_F(SCWTVariationDlgTest, ClosesByKeysAndClicks) {
    // What closes the dialog, and whether it stores.
    const std::pair<std::function<void(DialogUser&)>, bool> kWays[] = {
        {[](DialogUser& user) { user.Press(VK_RETURN); }, true},
        {[](DialogUser& user) { user.ClickOn(IDOK); }, true},
        {[](DialogUser& user) { user.Press(VK_ESCAPE); }, false},
        {[](DialogUser& user) { user.ClickOn(IDCANCEL); }, false},
        {[](DialogUser& user) {
             PostMessageW(user.Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
             user.Idle();
         },
         false},
    };
    for (const auto& [close, bStores] : kWays) {
        Values()[0] = 1.0;
        Configure(Rule(), [&, &close = close](DialogUser& user) {
            user.Press(L'U', VK_MENU);
            EXPECT_EQ(GetFocus(), user.Control(IDC_VARIATION_LENGTH_UNIT)) << "its label's mnemonic";
            user.Press(L'V', VK_MENU);
            user.Type(L"7");
            close(user);
            EXPECT_FALSE(user.IsOpen());
        });
        EXPECT_EQ(Value(), bStores ? 7.0 : 1.0);
    }
}

TEST_F(SCWTVariationDlgTest, RefusesZeroAfterStoringTheUnit) {
    for (const LPCWSTR pszText : {L"0", L"", L".", L"0.000"}) {
        SCOPED_TRACE(CString(pszText).GetString());
        Rule().m_nLengthUnit = LengthMillimetre;
        Configure(Rule(), [&](DialogUser& user) {
            user.Enter(IDC_VARIATION_VALUE, pszText);
            SelectUnit(user, LengthMetre - LengthMillimetre);
            m_boxes.Expect(L"Enter a value other than zero.");
            user.Press(VK_RETURN);
            EXPECT_STREQ(m_boxes.m_strCaption, L"");
            EXPECT_EQ(m_boxes.m_hOwner, user.Window());
            EXPECT_TRUE(user.IsOpen());
            EXPECT_EQ(Rule().m_nLengthUnit, LengthMetre);
            user.Press(VK_ESCAPE);
        });
        EXPECT_EQ(Value(), 25.0);
    }
}

TEST_F(SCWTVariationDlgTest, KeepsAUnitItDoesNotOfferAndFillsAnEmptyParameter) {
    Rule().m_nLengthUnit = LengthMicrometre;
    Values().RemoveAll();
    Configure(Rule(), [&](DialogUser& user) {
        EXPECT_STREQ(user.TextOf(IDC_VARIATION_VALUE), L"");
        EXPECT_EQ(SelectedUnit(user), -1);
        user.Enter(IDC_VARIATION_VALUE, L"3");
        user.Press(VK_RETURN);
    });
    EXPECT_EQ(Rule().m_nLengthUnit, LengthMicrometre);
    EXPECT_EQ(Values().GetCount(), 1);
    EXPECT_EQ(Value(), 3.0);
}

TEST_F(SCWTVariationDlgTest, KeepsDigitsThatItDoesNotShow) {
    Values()[0] = 12.3456789;
    Configure(Rule(), [](DialogUser& user) {
        EXPECT_STREQ(user.TextOf(IDC_VARIATION_VALUE), L"12.345679");
        user.Press(VK_RETURN);
    });
    EXPECT_EQ(Value(), 12.3456789);
    Values()[0] = -5.0;  // the box takes no sign, so it opens empty
    Configure(Rule(), [](DialogUser& user) {
        EXPECT_STREQ(user.TextOf(IDC_VARIATION_VALUE), L"");
        user.Press(VK_ESCAPE);
    });
    EXPECT_EQ(Value(), -5.0);
}

TEST_F(SCWTVariationDlgTest, BelongsToTheMainWindowOfItsHost) {
    const HWND hOther = CreateWindowW(L"STATIC", L"other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 50, 50,
                                      nullptr, nullptr, nullptr, nullptr);
    CWnd main;
    main.Attach(m_hHostWindow);
    AfxGetApp()->m_pMainWnd = &main;
    SetActiveWindow(hOther);
    Configure(Rule(), [](DialogUser& user) { user.Press(VK_ESCAPE); });
    AfxGetApp()->m_pMainWnd = nullptr;
    main.Detach();
    DestroyWindow(hOther);
}

TEST_F(SCWTVariationDlgTest, WithoutTheParameterOnlyCancelWorks) {
    DeleteParameters(Rule().m_paramArray);
    m_boxes.Expect(L"This rule can't be edited: its value or a part of the dialog is missing.",
                   MB_ICONEXCLAMATION);
    Configure(Rule(), [&](DialogUser& user) {
        EXPECT_FALSE(IsWindowEnabled(user.Control(IDOK)));
        SendMessageW(user.Window(), WM_COMMAND, IDOK, 0);
        EXPECT_TRUE(user.IsOpen());
        user.Press(VK_ESCAPE);
        EXPECT_FALSE(user.IsOpen());
    });
    EXPECT_TRUE(Rule().m_paramArray.IsEmpty());
}

TEST_F(SCWTVariationDlgTest, OkNeedsItsControls) {
    Configure(Rule(), [&](DialogUser& user) {
        SelectUnit(user, LengthInch - LengthMillimetre);
        DestroyWindow(user.Control(IDC_VARIATION_VALUE));
        user.Press(VK_RETURN);
        EXPECT_TRUE(user.IsOpen());
        EXPECT_EQ(Rule().m_nLengthUnit, LengthInch) << "the unit is stored all the same";
        DestroyWindow(user.Control(IDC_VARIATION_LENGTH_UNIT));
        Rule().m_nLengthUnit = LengthMetre;
        user.Press(VK_RETURN);
        EXPECT_TRUE(user.IsOpen());
        EXPECT_EQ(Rule().m_nLengthUnit, LengthMetre);
        user.Press(VK_ESCAPE);
    });
    EXPECT_EQ(Value(), 25.0);
}

TEST_F(SCWTVariationDlgTest, SaysThatTheHelpFileIsMissing) {
    Configure(Rule(), [&](DialogUser& user) {
        wchar_t szProgram[MAX_PATH];
        GetModuleFileNameW(nullptr, szProgram, MAX_PATH);
        const CString strFolder = CString(szProgram).Left(CString(szProgram).Find(L"\\bin\\"));
        m_boxes.Expect(
            L"The help file " + strFolder + L"\\lang\\english\\mfxkit.chm is missing or can't be opened.",
            MB_ICONEXCLAMATION);
        user.Press(VK_F1);
        m_boxes.Verify();
        EXPECT_STREQ(m_boxes.m_strCaption, L"MfxKit");
        user.Press(VK_ESCAPE);
    });
}

TEST_F(SCWTVariationDlgTest, LeavesNothingBehind) {
    const auto run = [this] {
        for (const WORD wKey : {WORD{VK_RETURN}, WORD{VK_ESCAPE}})
            Configure(Rule(), [wKey](DialogUser& user) { user.Press(wKey); });
    };
    run();
    const GuiObjects before = CountGuiObjects();
    for (int i = 0; i < 5; ++i) run();
    EXPECT_EQ(CountGuiObjects().nDrawingObjects, before.nDrawingObjects);
}
