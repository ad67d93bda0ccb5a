#include "DialogTest.h"
#include "MFXRuleDlgBase.h"
#include "MFXUnitConvertor.h"
#include "RuleParameters.h"
#include "resource.h"
#include "support/WindowText.h"

#include <gmock/gmock.h>

namespace {

struct SCWTVariationDlgTest : DialogTest {
    SCWTVariationDlgTest() : DialogTest(L"english") {}

    void Open(const std::function<void(DialogUser&)>& act) { Configure(m_rule, act); }

    static int SelectedUnit(const DialogUser& user) {
        return static_cast<int>(SendMessageW(user.Control(IDC_VARIATION_LENGTH_UNIT), CB_GETCURSEL, 0, 0));
    }
    static void SelectUnit(const DialogUser& user, int nIndex) {
        SendMessageW(user.Control(IDC_VARIATION_LENGTH_UNIT), CB_SETCURSEL, static_cast<WPARAM>(nIndex), 0);
    }

    CMfxRule& m_rule = Rule(19030);
    MfxArray<double>& m_values = m_rule.FindParameterInArray(kVariationId)->GetValues<double>();
};

}  // namespace

TEST_F(SCWTVariationDlgTest, ShowsValueAndUnitAndStoresThemByOk) {
    Open([&](DialogUser& user) {
        EXPECT_STREQ(user.TextOf(IDC_VARIATION_VALUE), L"25.0");
        EXPECT_EQ(SelectedUnit(user), 0);
        EXPECT_EQ(GetFocus(), user.Control(IDC_VARIATION_VALUE)) << "the first control in tab order";
        user.Enter(IDC_VARIATION_VALUE, L"12.5");
        for (const WORD wKey : std::initializer_list<WORD>{VK_TAB, VK_DOWN, VK_DOWN, VK_TAB})
            user.Press(wKey);
        EXPECT_EQ(GetFocus(), user.Control(IDOK));
        user.Press(VK_SPACE);
        EXPECT_FALSE(user.IsOpen());
    });
    EXPECT_EQ(m_values[0], 12.5);
    EXPECT_EQ(m_rule.m_nLengthUnit, LengthInch);
    EXPECT_STREQ(m_rule.m_strSummary, L"Wall thickness may vary by at most 12.5");
}

TEST_F(SCWTVariationDlgTest, ClosesByKeysAndClicksAndLeavesNothingBehind) {
    const struct {
        std::function<void(DialogUser&)> close;
        bool bStores;
    } kWays[] = {
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
    GuiObjects first{};
    for (const auto& [close, bStores] : kWays) {
        m_values[0] = 1.0;
        Open([&, &close = close](DialogUser& user) {
            user.Press(L'U', VK_MENU);
            EXPECT_EQ(GetFocus(), user.Control(IDC_VARIATION_LENGTH_UNIT)) << "its label's mnemonic";
            user.Press(L'V', VK_MENU);
            user.Type(L"7");
            close(user);
            EXPECT_FALSE(user.IsOpen());
        });
        EXPECT_EQ(m_values[0], bStores ? 7.0 : 1.0);
        if (first.nDrawingObjects == 0) first = CountGuiObjects();
    }
    EXPECT_EQ(CountGuiObjects().nDrawingObjects, first.nDrawingObjects);
}

TEST_F(SCWTVariationDlgTest, RefusesZeroAfterStoringTheUnit) {
    for (const LPCWSTR pszText : {L"0", L"", L".", L"0.000"}) {
        SCOPED_TRACE(CString(pszText).GetString());
        m_rule.m_nLengthUnit = LengthMillimetre;
        Open([&](DialogUser& user) {
            user.Enter(IDC_VARIATION_VALUE, pszText);
            SelectUnit(user, LengthMetre - LengthMillimetre);
            m_boxes.Expect(L"Enter a value other than zero.");
            user.Press(VK_RETURN);
            EXPECT_STREQ(m_boxes.m_strCaption, L"");
            EXPECT_EQ(m_boxes.m_hOwner, user.Window());
            EXPECT_TRUE(user.IsOpen());
            EXPECT_EQ(m_rule.m_nLengthUnit, LengthMetre);
            user.Press(VK_ESCAPE);
        });
        EXPECT_EQ(m_values[0], 25.0);
    }
}

TEST_F(SCWTVariationDlgTest, KeepsWhatItCanNotShow) {
    const struct {
        std::vector<double> values;
        int nUnit;
        LPCWSTR pszShown;
        int nShownUnit;
        LPCWSTR pszTyped;  // null: nothing
        double stored;
    } kCases[] = {
        {{12.3456789}, LengthFoot, L"12.345679", 4, nullptr, 12.3456789},
        {{}, LengthMicrometre, L"", -1, L"3", 3},       // a unit that is not offered
        {{-5}, LengthMillimetre, L"", 0, L"2.5", 2.5},  // the box takes no sign, so it opens empty
    };
    for (const auto& test : kCases) {
        m_values.RemoveAll();
        for (const double value : test.values) m_values.Add(value);
        m_rule.m_nLengthUnit = test.nUnit;
        Open([&](DialogUser& user) {
            EXPECT_STREQ(user.TextOf(IDC_VARIATION_VALUE), test.pszShown);
            EXPECT_EQ(SelectedUnit(user), test.nShownUnit);
            if (test.pszTyped) user.Enter(IDC_VARIATION_VALUE, test.pszTyped);
            user.Press(VK_RETURN);
        });
        EXPECT_EQ(m_rule.m_nLengthUnit, test.nUnit);
        ASSERT_EQ(m_values.GetCount(), 1);
        EXPECT_EQ(m_values[0], test.stored);
    }
}

TEST_F(SCWTVariationDlgTest, BelongsToTheMainWindowOfItsHost) {
    const HWND hOther = CreateWindowW(L"STATIC", L"other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 50, 50,
                                      nullptr, nullptr, nullptr, nullptr);
    CWnd main;
    main.Attach(m_hHostWindow);
    AfxGetApp()->m_pMainWnd = &main;
    SetActiveWindow(hOther);
    Open([](DialogUser& user) { user.Press(VK_ESCAPE); });
    DestroyWindow(hOther);
    m_hOwner = CreateWindowW(L"STATIC", L"palette", WS_POPUP | WS_CAPTION | WS_VISIBLE, 0, 0, 50, 50,
                             m_hHostWindow, nullptr, nullptr, nullptr);
    for (CWnd* const pMain : {&main, static_cast<CWnd*>(nullptr)}) {
        AfxGetApp()->m_pMainWnd = pMain;
        SetActiveWindow(m_hOwner);
        Open([](DialogUser& user) { user.Press(VK_ESCAPE); });
    }
    main.Detach();
}

TEST_F(SCWTVariationDlgTest, WithoutTheParameterOnlyCancelWorks) {
    DeleteParameters(m_rule.m_paramArray);
    m_boxes.Expect(L"This rule can't be edited: its value or a part of the dialog is missing.",
                   MB_ICONEXCLAMATION);
    Open([&](DialogUser& user) {
        EXPECT_FALSE(IsWindowEnabled(user.Control(IDOK)));
        SendMessageW(user.Window(), WM_COMMAND, IDOK, 0);
        EXPECT_TRUE(user.IsOpen());
        user.Press(VK_ESCAPE);
        EXPECT_FALSE(user.IsOpen());
    });
    EXPECT_TRUE(m_rule.m_paramArray.IsEmpty());
}

TEST_F(SCWTVariationDlgTest, OkNeedsItsControls) {
    Open([&](DialogUser& user) {
        SelectUnit(user, LengthInch - LengthMillimetre);
        for (const int nControlId : {IDC_VARIATION_VALUE, IDC_VARIATION_LENGTH_UNIT}) {
            DestroyWindow(user.Control(nControlId));
            user.Press(VK_RETURN);
            EXPECT_TRUE(user.IsOpen());
            EXPECT_EQ(m_rule.m_nLengthUnit, LengthInch) << "stored as long as its control is there";
        }
        user.Press(VK_ESCAPE);
    });
    EXPECT_EQ(m_values[0], 25.0);
}

TEST_F(SCWTVariationDlgTest, OpensItsHelp) {
    Open([&](DialogUser& user) {
        EXPECT_FALSE(GetModuleHandleW(L"hhctrl.ocx")) << "loaded without need";
        user.Press(VK_F1);
        const HWND hHelp = FindWindowW(L"HH Parent", nullptr);
        EXPECT_TRUE(hHelp);
        EXPECT_STREQ(WindowText(hHelp), L"Sand Casting Rules");
        DestroyWindow(hHelp);
        user.Press(VK_ESCAPE);
    });
}

TEST_F(SCWTVariationDlgTest, SaysThatThereIsNoHelp) {
    wchar_t szProgram[MAX_PATH];
    GetModuleFileNameW(nullptr, szProgram, MAX_PATH);
    AfxSetResourceHandle(GetModuleHandleW(L"MFXSandCastingRulesResu.dll"));
    for (const CString& strFile : {CString(L"C:\\missing.chm"), CString(szProgram)}) {
        CMFXRuleDlgBase dialog(IDD_VARIATION, 19030, strFile, nullptr);
        RunDialog([&] { dialog.DoModal(); },
                  [&](DialogUser& user) {
                      m_boxes.Expect(L"The help file " + strFile + L" is missing or can't be opened.",
                                     MB_ICONEXCLAMATION);
                      user.Press(VK_F1);
                      m_boxes.Verify();
                      EXPECT_STREQ(m_boxes.m_strCaption, L"MfxKit");
                      user.Press(VK_ESCAPE);
                  });
    }
    AfxSetResourceHandle(LoadedModule::HostResources());
}
