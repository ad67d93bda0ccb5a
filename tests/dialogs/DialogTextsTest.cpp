// Every dialog in every language: all texts have room, and no two mnemonics are the same.

#include "DialogTest.h"
#include "support/Screenshot.h"
#include "support/WindowText.h"

#include <set>

namespace {

constexpr int kRulesWithDialog[] = {19030};

struct DialogTextsTest : DialogTest, testing::WithParamInterface<const wchar_t*> {
    DialogTextsTest() : DialogTest(GetParam()) {}
};

int Scaled(int nPixels) {
    return MulDiv(nPixels, static_cast<int>(GetDpiForSystem()), 96);
}

bool IsOfClass(HWND hControl, LPCWSTR pszClass) {
    wchar_t szClass[16] = L"";
    GetClassNameW(hControl, szClass, static_cast<int>(std::size(szClass)));
    return CString(szClass).CompareNoCase(pszClass) == 0;
}

// The window's text must leave as many pixels of the window's width.
void ExpectRoom(HWND hWindow, int nFrameAt96Dpi) {
    const CString strText = WindowText(hWindow);
    const HDC hDC = GetDC(hWindow);
    const auto hFont = reinterpret_cast<HFONT>(SendMessageW(hWindow, WM_GETFONT, 0, 0));
    const HGDIOBJ hPrevious = SelectObject(hDC, hFont);
    RECT text{}, client{};
    DrawTextW(hDC, strText, -1, &text, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(hDC, hPrevious);
    ReleaseDC(hWindow, hDC);
    GetClientRect(hWindow, &client);
    EXPECT_LE(text.right + Scaled(nFrameAt96Dpi), client.right) << strText.GetString();
    EXPECT_LE(text.bottom, client.bottom) << strText.GetString();
}

void ExpectInside(HWND hControl, HWND hDialog) {
    CRect control, dialog, both;
    GetWindowRect(hControl, &control);
    GetClientRect(hDialog, &dialog);
    MapWindowPoints(hDialog, nullptr, reinterpret_cast<POINT*>(&dialog), 2);
    IntersectRect(&both, &control, &dialog);
    EXPECT_EQ(both, control) << WindowText(hControl).GetString();
}

void CheckControls(HWND hDialog) {
    std::set<wchar_t> mnemonics;
    int nLabels = 0;
    for (HWND hControl = GetWindow(hDialog, GW_CHILD); hControl;
         hControl = GetWindow(hControl, GW_HWNDNEXT)) {
        const bool bButton = IsOfClass(hControl, L"Button"), bLabel = IsOfClass(hControl, L"Static");
        if (!bButton && !bLabel) continue;
        ExpectRoom(hControl, bButton ? 8 : 0);
        ExpectInside(hControl, hDialog);
        const CString strText = WindowText(hControl);
        const int nMark = strText.Find(L'&');
        nLabels += bLabel;
        EXPECT_TRUE(nMark >= 0 || bButton) << "no mnemonic: " << strText.GetString();
        if (nMark < 0) continue;
        const wchar_t wMnemonic = static_cast<wchar_t>(std::towupper(strText[nMark + 1]));
        EXPECT_TRUE(mnemonics.insert(wMnemonic).second) << "mnemonic twice: " << strText.GetString();
    }
    EXPECT_GT(nLabels, 0);
}

}  // namespace

TEST_P(DialogTextsTest, HaveRoom) {
    for (const int nRuleId : kRulesWithDialog)
        Configure(Rule(nRuleId), [&](DialogUser& user) {
            CheckControls(user.Window());
            ExpectRoom(user.Window(), 40);  // the caption and its button
            CString strName;
            strName.Format(L"%d-%s", nRuleId, GetParam());
            const CString strSystem = CLanguageUtil::GetLanguageWord(GetSystemDefaultLangID());
            const bool bUsersFonts = strSystem == GetParam();
            EXPECT_TRUE(!bUsersFonts || KeepScreenshot(user.Window(), strName));
            user.Press(VK_ESCAPE);
        });
}

INSTANTIATE_TEST_SUITE_P(Languages, DialogTextsTest,
                         testing::Values(L"english", L"japanese", L"korean", L"french",
                                         L"chinese-simplified"));
