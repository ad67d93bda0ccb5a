#include "DoubleEditEx.h"

#include <gtest/gtest.h>

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
        return Text();
    }
    CString Pasted(const CString& strText) {
        EXPECT_TRUE(OpenClipboard(m_parent.m_hWnd) && EmptyClipboard());
        const HGLOBAL hText = GlobalAlloc(GMEM_MOVEABLE, sizeof(wchar_t) * (strText.GetLength() + 1u));
        wcscpy(static_cast<wchar_t*>(GlobalLock(hText)), strText);
        GlobalUnlock(hText);
        EXPECT_TRUE(SetClipboardData(CF_UNICODETEXT, hText) && CloseClipboard());
        m_edit.SendMessage(WM_PASTE);
        return Text();
    }
    CString Text() const {
        CString strText;
        m_edit.GetWindowText(strText);
        return strText;
    }

    CWnd m_parent;
    CDoubleEditEx m_edit;
};

}  // namespace

TEST_P(DoubleEditExTest, TakesBackWhatIsNoNumberCharacter) {
    EXPECT_FALSE(m_edit.IsModified());
    EXPECT_STREQ(Typed(L"12a"), L"12");
    EXPECT_TRUE(m_edit.IsModified());
    int nStart = 0, nEnd = 0;
    m_edit.GetSel(nStart, nEnd);
    EXPECT_TRUE(nStart == 2 && nEnd == 2) << "the caret stands behind the text";
    EXPECT_STREQ(Typed(L"1a2b3"), L"123");
    EXPECT_STREQ(Typed(L"1.2.3"), L"1.2.3");
    EXPECT_STREQ(Typed(L"1,5"), L"15") << "the decimal comma of a locale";
    EXPECT_STREQ(Typed(L"-5"), L"5");
    EXPECT_STREQ(Typed(L"x7"), L"7") << "a refused first character leaves an empty box";
}

TEST_P(DoubleEditExTest, AcceptsMinusSignsWhereAllowed) {
    m_edit.SetAllowNegative(true);
    EXPECT_STREQ(Typed(L"-5.5-e"), L"-5.5-");
    Typed(L"5-");
    m_edit.SetAllowNegative(false);
    m_edit.SendMessage(WM_CHAR, L'e', 1);
    EXPECT_STREQ(Text(), L"5-") << "the last valid text, by the rule of its time";
    EXPECT_STREQ(Typed(L"-5"), L"5");
}

TEST_P(DoubleEditExTest, FiltersPastedText) {
    Typed(L"12");
    EXPECT_STREQ(Pasted(L"3.4"), L"123.4");
    EXPECT_STREQ(Pasted(L"5 mm"), L"123.4");
    m_edit.SetSel(0, -1);
    EXPECT_STREQ(Pasted(L"mm"), L"") << "nothing in front is left";
}

TEST_P(DoubleEditExTest, GoesBackToATextSetByCode) {
    m_edit.SetWindowText(L"42");
    if (GetParam() & ES_MULTILINE) m_edit.SetLastValidText(L"42");
    m_edit.SetSel(2, 2);
    m_edit.SendMessage(WM_CHAR, L'x', 1);
    EXPECT_STREQ(Text(), L"42");
}

INSTANTIATE_TEST_SUITE_P(Boxes, DoubleEditExTest, testing::Values(DWORD{0}, DWORD{ES_MULTILINE}));
