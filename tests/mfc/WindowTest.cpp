#include <afxwin.h>

#include <gtest/gtest.h>

namespace {

class CProbe : public CWnd {
  public:
    CPoint m_pressedAt{0, 0};
    int m_nCommands = 0;

  private:
    afx_msg void OnLButtonDown(UINT, CPoint point) { m_pressedAt = point; }
    afx_msg void OnCommand2() { ++m_nCommands; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CProbe, CWnd)
    ON_WM_LBUTTONDOWN()
    ON_COMMAND(2, &CProbe::OnCommand2)
END_MESSAGE_MAP()

}  // namespace

// Most handlers and their arguments are tested by the windows that have them.
TEST(WindowTest, ObjectFollowsItsWindowAndGetsItsMessages) {
    CProbe probe;
    ASSERT_TRUE(probe.CreateEx(0, L"STATIC", L"", WS_POPUP, CRect(0, 0, 90, 50), nullptr, 0));
    CEdit edit;  // takes no notifications itself
    ASSERT_TRUE(edit.Create(WS_CHILD, CRect(), &probe, 2));
    EXPECT_FALSE(edit.Create(WS_CHILD, CRect(), &probe, 4)) << "one window at a time";
    EXPECT_EQ(probe.GetDlgItem(2), &edit);
    EXPECT_EQ(edit.GetParent(), &probe);
    probe.SendMessage(WM_LBUTTONDOWN, MK_SHIFT, MAKELPARAM(-3, 4));
    EXPECT_EQ(probe.m_pressedAt.x, -3);
    EXPECT_EQ(probe.m_pressedAt.y, 4);
    const auto control = reinterpret_cast<LPARAM>(edit.m_hWnd);
    for (const WPARAM wOther : {MAKEWPARAM(2, BN_DOUBLECLICKED), MAKEWPARAM(3, BN_CLICKED)})
        probe.SendMessage(WM_COMMAND, wOther, control);
    EXPECT_EQ(probe.m_nCommands, 0);
    probe.SendMessage(WM_COMMAND, MAKEWPARAM(2, BN_CLICKED), control);
    probe.SendMessage(WM_COMMAND, MAKEWPARAM(2, 1));  // from an accelerator
    EXPECT_EQ(probe.m_nCommands, 2);
    probe.DestroyWindow();
    EXPECT_FALSE(edit.m_hWnd);
}
