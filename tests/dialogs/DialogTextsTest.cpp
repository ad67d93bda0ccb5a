// Every dialog in every language: all texts have room, and no two mnemonics are the same.

#include "DialogTest.h"
#include "RealDatabase.h"
#include "resource.h"
#include "support/Screenshot.h"
#include "support/WindowText.h"

#include <afxcmn.h>
#include <set>

namespace {

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

CRect ClientOf(HWND hWindow) {
    CRect client;
    GetClientRect(hWindow, &client);
    return client;
}

// In the window's font; DT_WORDBREAK breaks lines at the window's width.
CSize SizeOfText(HWND hWindow, const CString& strText, UINT nFormat) {
    const HDC hDC = GetDC(hWindow);
    const HGDIOBJ hPrevious =
        SelectObject(hDC, reinterpret_cast<HFONT>(SendMessageW(hWindow, WM_GETFONT, 0, 0)));
    CRect text = ClientOf(hWindow);
    DrawTextW(hDC, strText, -1, &text, DT_CALCRECT | nFormat);
    SelectObject(hDC, hPrevious);
    ReleaseDC(hWindow, hDC);
    return text.Size();
}

// The window's text must leave as many pixels of the window's width.
void ExpectRoom(HWND hWindow, int nFrameAt96Dpi, UINT nFormat = DT_SINGLELINE) {
    const CString strText = WindowText(hWindow);
    const CSize text = SizeOfText(hWindow, strText, nFormat);
    EXPECT_LE(text.cx + Scaled(nFrameAt96Dpi), ClientOf(hWindow).right) << strText.GetString();
    EXPECT_LE(text.cy, ClientOf(hWindow).bottom) << strText.GetString();
}

// The header draws six pixels before and behind a heading.
void ExpectRoomForHeadings(HWND hGrid) {
    const auto hHeader = reinterpret_cast<HWND>(SendMessageW(hGrid, LVM_GETHEADER, 0, 0));
    for (int nCol = 0; nCol < Header_GetItemCount(hHeader); ++nCol) {
        wchar_t szText[100] = L"";
        HDITEMW item{};
        item.mask = HDI_TEXT | HDI_WIDTH;
        item.pszText = szText;
        item.cchTextMax = static_cast<int>(std::size(szText));
        Header_GetItem(hHeader, nCol, &item);
        const CSize text = SizeOfText(hHeader, szText, DT_SINGLELINE | DT_NOPREFIX);
        EXPECT_TRUE(item.cxy >= text.cx + 12 || !szText[0]) << szText << item.cxy;
    }
}

void ExpectInside(HWND hControl, HWND hDialog) {
    CRect control, dialog, both;
    GetWindowRect(hControl, &control);
    GetClientRect(hDialog, &dialog);
    MapWindowPoints(hDialog, nullptr, reinterpret_cast<POINT*>(&dialog), 2);
    IntersectRect(&both, &control, &dialog);
    EXPECT_EQ(both, control) << WindowText(hControl).GetString();
}

// A screen reader calls a control by the label before it.
bool HasName(HWND hControl) {
    HWND hBefore = GetWindow(hControl, GW_HWNDPREV);
    while (hBefore && !IsOfClass(hBefore, L"Static") && !(GetWindowLongW(hBefore, GWL_STYLE) & WS_TABSTOP))
        hBefore = GetWindow(hBefore, GW_HWNDPREV);
    return hBefore && IsOfClass(hBefore, L"Static") && !WindowText(hBefore).IsEmpty();
}

void CheckControls(HWND hDialog) {
    std::set<wchar_t> mnemonics;
    int nLabels = 0;
    for (HWND hControl = GetWindow(hDialog, GW_CHILD); hControl;
         hControl = GetWindow(hControl, GW_HWNDNEXT)) {
        ExpectInside(hControl, hDialog);
        const bool bButton = IsOfClass(hControl, L"Button"), bLabel = IsOfClass(hControl, L"Static");
        const bool bTabStop = GetWindowLongW(hControl, GWL_STYLE) & WS_TABSTOP;
        EXPECT_TRUE(bButton || !bTabStop || HasName(hControl)) << GetDlgCtrlID(hControl);
        if (IsOfClass(hControl, L"SysListView32")) {
            ExpectRoomForHeadings(hControl);
            EXPECT_FALSE(GetWindowLongW(hControl, GWL_STYLE) & WS_HSCROLL) << "columns out of view";
        }
        if ((!bButton && !bLabel) || WindowText(hControl).IsEmpty()) continue;
        if (GetWindowLongW(hControl, GWL_STYLE) & SS_NOPREFIX) {
            ExpectRoom(hControl, 0, DT_WORDBREAK | DT_NOPREFIX);
            continue;
        }
        ExpectRoom(hControl, bButton ? 8 : 0);
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

void CheckDialog(DialogUser& user, int nContext, const CString& strLanguage) {
    user.Idle();  // until all is painted
    CheckControls(user.Window());
    ExpectRoom(user.Window(), 40);  // the caption and its button
    CString strName;
    strName.Format(L"%d-%s", nContext, strLanguage.GetString());
    const bool bUsersFonts = CLanguageUtil::GetLanguageWord(GetSystemDefaultLangID()) == strLanguage;
    EXPECT_TRUE(!bUsersFonts || KeepScreenshot(user.Window(), strName));
}

}  // namespace

TEST_P(DialogTextsTest, HaveRoom) {
    AddGroupTo(Rule(19020), L"Aluminium Alloys", {{0, 150, 0.1, 0.5, 3}, {150, 400, 0.5, 10, 3.5}});
    AddGroupTo(Rule(19020), L"Steel", {{0, 200, -1, -1, 5}, {200, 600, -1, -1, 7.5}, {600, 0, -1, -1, 10}});
    for (const int nRuleId : {19010, 19020, 19030, 19040})
        Configure(Rule(nRuleId), [&](DialogUser& user) {
            CheckDialog(user, nRuleId, GetParam());
            user.Press(VK_ESCAPE);
        });
}

TEST_P(DialogTextsTest, HaveRoomInTheEditorOfMaterials) {
    RealDatabase database;
    Configure(Rule(19010), [&](DialogUser& user) {
        user.ClickOn(IDC_EDIT_MATERIALS);
        user.InNextDialog([&] {
            user.Type(L"Iron");
            user.Press(VK_RIGHT);
            user.Press(VK_RIGHT);
            CheckDialog(user, 7010, GetParam());
            user.Press(VK_ESCAPE);
        });
        user.Press(VK_ESCAPE);
    });
}

INSTANTIATE_TEST_SUITE_P(Languages, DialogTextsTest,
                         testing::Values(L"english", L"japanese", L"korean", L"french",
                                         L"chinese-simplified"));
