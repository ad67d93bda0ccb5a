#include <afxwin.h>

#include <gtest/gtest.h>

namespace {

// Notes its window's first message, and may refuse the window.
class CProbeWindow : public CStatic {
  public:
    BOOL CreateTop() { return CreateEx(0, L"STATIC", L"", WS_POPUP, CRect(0, 0, 40, 20), nullptr, 0); }

    UINT m_nFirstMessage = 0;
    int m_createResult = 0;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!m_nFirstMessage) m_nFirstMessage = message;
        return CStatic::WindowProc(message, wParam, lParam);
    }
    afx_msg int OnCreate(LPCREATESTRUCT p) { return m_createResult ? m_createResult : CStatic::OnCreate(p); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CProbeWindow, CStatic)
    ON_WM_CREATE()
END_MESSAGE_MAP()

}  // namespace

TEST(WindowTest, ObjectFollowsTheWindowThatItCreates) {
    CProbeWindow top, child;
    ASSERT_TRUE(top.CreateTop());
    ASSERT_TRUE(child.Create(nullptr, 0, CRect(0, 0, 50, 20), &top, 2));
    EXPECT_EQ(child.m_nFirstMessage, UINT{WM_NCCREATE});
    EXPECT_EQ(top.GetDlgItem(2), &child);
    EXPECT_EQ(child.GetParent(), &top);
    EXPECT_FALSE(child.Create(nullptr, 0, CRect(), &top, 4)) << "one window at a time";
    child.DestroyWindow();
    child.m_createResult = -1;
    EXPECT_FALSE(child.Create(nullptr, 0, CRect(), &top, 3));
    EXPECT_FALSE(child.m_hWnd);
    child.m_createResult = 0;
    EXPECT_TRUE(child.Create(nullptr, 0, CRect(), &top, 3));
    top.DestroyWindow();
    EXPECT_FALSE(child.m_hWnd);
}
