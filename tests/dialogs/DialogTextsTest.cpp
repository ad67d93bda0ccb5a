// Every dialog in every language: all texts have room, and no two mnemonics are the same.

#include "DialogTest.h"
#include "support/Screenshot.h"
#include "support/WindowText.h"

#include <set>

namespace {

constexpr int kRulesWithDialog[] = {19030};

struct Texts {
    HWND hDialog;
    std::set<wchar_t> mnemonics;
    int nLabels = 0;
};

SIZE RoomFor(HWND hControl, const CString& strText) {
    const HDC hDC = GetDC(hControl);
    const auto hFont = reinterpret_cast<HFONT>(SendMessageW(hControl, WM_GETFONT, 0, 0));
    const HGDIOBJ hPrevious = SelectObject(hDC, hFont);
    RECT rect{};
    DrawTextW(hDC, strText, -1, &rect, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(hDC, hPrevious);
    ReleaseDC(hControl, hDC);
    return {rect.right, rect.bottom};
}

void CheckMnemonic(Texts& texts, const CString& strText) {
    const int nMark = strText.Find(L'&');
    if (nMark < 0) return;
    const wchar_t wMnemonic = static_cast<wchar_t>(std::towupper(strText[nMark + 1]));
    EXPECT_TRUE(texts.mnemonics.insert(wMnemonic).second) << "mnemonic twice: " << strText.GetString();
}

BOOL CALLBACK CheckControl(HWND hControl, LPARAM pTexts) {
    auto& texts = *reinterpret_cast<Texts*>(pTexts);
    wchar_t szClass[16] = L"";
    GetClassNameW(hControl, szClass, static_cast<int>(std::size(szClass)));
    const bool bButton = CString(szClass).CompareNoCase(L"Button") == 0;
    if (GetParent(hControl) != texts.hDialog || (!bButton && CString(szClass).CompareNoCase(L"Static") != 0))
        return TRUE;
    const CString strText = WindowText(hControl);
    const SIZE room = RoomFor(hControl, strText);
    RECT client{}, dialog{};
    GetClientRect(hControl, &client);
    MapWindowPoints(hControl, texts.hDialog, reinterpret_cast<POINT*>(&client), 2);
    GetClientRect(texts.hDialog, &dialog);
    const int nFrame = bButton ? 8 : 0;
    EXPECT_LE(room.cx + nFrame, client.right - client.left) << strText.GetString();
    EXPECT_LE(room.cy, client.bottom - client.top) << strText.GetString();
    EXPECT_TRUE(client.left >= 0 && client.right <= dialog.right && client.bottom <= dialog.bottom);
    if (!bButton) {
        ++texts.nLabels;
        EXPECT_GE(strText.Find(L'&'), 0) << "no mnemonic: " << strText.GetString();
    }
    CheckMnemonic(texts, strText);
    return TRUE;
}

}  // namespace

class DialogTextsTest : public DialogTest, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(DialogTextsTest, HaveRoom) {
    LoadModule(GetParam());
    CreateDirectoryW(L"screenshots", nullptr);
    for (const int nRuleId : kRulesWithDialog)
        Configure(Rule(nRuleId), [&](DialogUser& user) {
            Texts texts{user.Window(), {}, 0};
            EnumChildWindows(user.Window(), CheckControl, reinterpret_cast<LPARAM>(&texts));
            EXPECT_GT(texts.nLabels, 0);
            EXPECT_LE(RoomFor(user.Window(), WindowText(user.Window())).cx + 40, [&] {
                RECT rect{};
                GetClientRect(user.Window(), &rect);
                return rect.right;
            }()) << "caption";
            CString strFile;
            strFile.Format(L"screenshots\\%d-%s.png", nRuleId, GetParam());
            EXPECT_TRUE(SaveScreenshot(user.Window(), strFile));
            user.Press(VK_ESCAPE);
        });
}

INSTANTIATE_TEST_SUITE_P(Languages, DialogTextsTest,
                         testing::Values(L"english", L"japanese", L"korean", L"french",
                                         L"chinese-simplified"));
