#include <afxwin.h>

#include <gtest/gtest.h>

#include <utility>

namespace {

CString g_trace;  // what the handlers were given

template <class... Values>
int Trace(LPCWSTR name, Values... values) {
    g_trace += name;
    ((g_trace += std::to_wstring(static_cast<int>(values)).insert(0, L" ").c_str()), ...);
    g_trace += L";";
    return 5;
}

CString TakeTrace() {
    return std::exchange(g_trace, L"");
}

// A handler for each way in which arguments are taken from a message.
class CProbe : public CWnd {
  private:
    afx_msg void OnSize(UINT nType, int cx, int cy) { Trace(L"size", nType, cx, cy); }
    afx_msg void OnKeyDown(UINT nKey, UINT nRepeat, UINT nFlags) { Trace(L"key", nKey, nRepeat, nFlags); }
    afx_msg void OnLButtonDown(UINT nFlags, CPoint p) { Trace(L"down", nFlags, p.x, p.y); }
    afx_msg void OnVScroll(UINT n, UINT nPos, CScrollBar* p) { Trace(L"scroll", n, nPos, p == nullptr); }
    afx_msg void OnCommand2() { Trace(L"command"); }
    afx_msg LRESULT OnApp(WPARAM wParam, LPARAM lParam) { return Trace(L"app", wParam, lParam); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CProbe, CWnd)
    ON_WM_SIZE()
    ON_WM_KEYDOWN()
    ON_WM_LBUTTONDOWN()
    ON_WM_VSCROLL()
    ON_MESSAGE(WM_APP + 1, &CProbe::OnApp)
    ON_COMMAND(2, &CProbe::OnCommand2)
END_MESSAGE_MAP()

}  // namespace

TEST(MessageMapTest, HandlersGetTheirArgumentsAndAnswer) {
    CProbe probe;
    ASSERT_TRUE(probe.CreateEx(0, L"STATIC", L"", WS_POPUP, CRect(0, 0, 90, 50), nullptr, 0));
    EXPECT_EQ(TakeTrace(), L"size 0 90 50;");
    CEdit edit;  // takes no notifications itself
    ASSERT_TRUE(edit.Create(WS_CHILD, CRect(), &probe, 2));
    const auto control = reinterpret_cast<LPARAM>(edit.m_hWnd);
    const struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        LPCWSTR trace;
        LRESULT result;
    } cases[] = {
        {WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(40000, 30), L"size 2 40000 30;", 0},
        {WM_KEYDOWN, VK_F2, MAKELPARAM(3, 0xC001), L"key 113 3 49153;", 0},
        {WM_LBUTTONDOWN, MK_SHIFT, MAKELPARAM(-3, 4), L"down 4 -3 4;", 0},
        {WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 30), 0, L"scroll 5 30 1;", 0},
        {WM_APP + 1, 5, 6, L"app 5 6;", 5},
        {WM_COMMAND, MAKEWPARAM(2, BN_CLICKED), control, L"command;", 0},
        {WM_COMMAND, MAKEWPARAM(2, BN_DOUBLECLICKED), control, L"", 0},
        {WM_COMMAND, MAKEWPARAM(3, BN_CLICKED), control, L"", 0},
        {WM_COMMAND, MAKEWPARAM(2, 1), 0, L"command;", 0},  // from an accelerator
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.message << " " << c.wParam);
        EXPECT_EQ(probe.SendMessage(c.message, c.wParam, c.lParam), c.result);
        EXPECT_EQ(TakeTrace(), c.trace);
    }
}
