#include "DoubleEditEx.h"

#include "support/WindowText.h"

#include <gtest/gtest.h>

#include <clocale>

namespace {

// A box in a window, as in a dialog (single-line) or in a grid's cell (multi-line).
class DoubleEditExTest : public testing::TestWithParam<DWORD> {
  protected:
    DoubleEditExTest() {
        const CRect area(0, 0, 200, 100);
        m_parent.CreateEx(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, area, nullptr, 0);
        m_edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL | GetParam(), area, &m_parent, 1);
    }
    ~DoubleEditExTest() override { m_parent.DestroyWindow(); }

    // As typed after all text was selected.
    CString Typed(const CString& strText) {
        m_edit.SetSel(0, -1);
        m_edit.SendMessage(WM_CLEAR);
        for (int i = 0; i < strText.GetLength(); ++i) m_edit.SendMessage(WM_CHAR, strText[i], 1);
        return WindowText(m_edit);
    }

    CWnd m_parent;
    CDoubleEditEx m_edit;
    const LPCWSTR m_pszTypedComma = *std::localeconv()->decimal_point == ',' ? L"1.5" : L"15";
};

}  // namespace

TEST_P(DoubleEditExTest, TakesBackWhatIsNoNumberCharacter) {
    EXPECT_FALSE(m_edit.IsModified());
    EXPECT_STREQ(Typed(L"12a"), L"12");
    EXPECT_TRUE(m_edit.IsModified());
    EXPECT_EQ(m_edit.SendMessage(EM_GETSEL), MAKELRESULT(2, 2)) << "the caret stands behind the text";
    // Typed without and with permission for minus signs.
    const LPCWSTR cases[][3] = {{L"1a2b3", L"123", L"123"},
                                {L"1.2.3", L"1.2.3", L"1.2.3"},
                                {L"1,5", m_pszTypedComma, m_pszTypedComma},
                                {L"-5.5-e", L"5.5", L"-5.5-"},
                                {L"x7", L"7", L"7"}};
    for (const bool bAllowNegative : {false, true, false}) {
        m_edit.SetAllowNegative(bAllowNegative);
        for (const auto& texts : cases) EXPECT_STREQ(Typed(texts[0]), texts[bAllowNegative ? 2 : 1]);
    }
}

TEST_P(DoubleEditExTest, GoesBackToTheLastValidText) {
    m_edit.SetAllowNegative(true);
    Typed(L"5-");
    m_edit.SetAllowNegative(false);
    m_edit.SendMessage(WM_CHAR, L'e', 1);
    EXPECT_STREQ(WindowText(m_edit), L"5-") << "valid by the rule of its time";
    m_edit.SetWindowText(L"42");
    if (GetParam() & ES_MULTILINE) m_edit.SetLastValidText(L"42");
    m_edit.SetSel(2, 2);
    m_edit.SendMessage(WM_CHAR, L'x', 1);
    EXPECT_STREQ(WindowText(m_edit), L"42") << "set by code";
}

TEST_P(DoubleEditExTest, FiltersTextThatComesAtOnce) {
    const auto paste = [&](const wchar_t* pszText) {
        m_edit.SendMessage(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(pszText));
    };
    Typed(L"12");
    for (const auto& [pszPasted, pszLeft] :
         {std::pair{L"3.4", L"123.4"}, {L"5 mm", L"123.4"}, {L"1,5", L"123.4"}}) {
        paste(pszPasted);
        EXPECT_STREQ(WindowText(m_edit), pszLeft) << pszPasted;
    }
    m_edit.SetSel(0, -1);
    paste(L"mm");
    EXPECT_STREQ(WindowText(m_edit), L"") << "nothing in front is left";
}

INSTANTIATE_TEST_SUITE_P(Boxes, DoubleEditExTest, testing::Values(DWORD{0}, DWORD{ES_MULTILINE}));
