#include <afxwin.h>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "MfcTestIds.h"
#include "support/DialogUser.h"
#include "support/MessageBoxRecorder.h"
#include "temporaries.h"

namespace {

struct CMainWindow : CWnd {
    CMainWindow() {
        CreateEx(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 300, 200), nullptr, 0);
        AfxGetApp()->m_pMainWnd = this;
    }
    ~CMainWindow() override { AfxGetApp()->m_pMainWnd = nullptr; }
};

// Throws at a message, or at F2 on its way from the loop.
struct CThrowingEdit : CEdit {
    BOOL PreTranslateMessage(MSG* pMsg) override {
        return pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_F2 ? throw std::runtime_error("key") : FALSE;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == m_nThrowAt) throw std::runtime_error("message");
        return CEdit::WindowProc(message, wParam, lParam);
    }
    UINT m_nThrowAt = 0;
};

class CTestDialog : public CDialog {
  public:
    explicit CTestDialog(CWnd* pParent = nullptr) : CDialog(IDD_TEST, pParent) {}
    INT_PTR Run(const std::function<void(DialogUser&)>& act) {
        INT_PTR result = 0;
        ::RunDialog([&] { result = DoModal(); }, act);
        return result;
    }

    CThrowingEdit m_edit;
    std::function<void()> m_atStart = [] {};

  protected:
    BOOL OnInitDialog() override {
        m_atStart();
        GetDlgItem(IDC_TEST_CHECK)->SetFocus();
        return CDialog::OnInitDialog() - TRUE;
    }
    void DoDataExchange(CDataExchange* pDX) override { DDX_Control(pDX, IDC_TEST_EDIT, m_edit); }
    afx_msg void OnButton() { throw std::runtime_error("button"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
    ON_COMMAND(IDC_TEST_BUTTON, &CTestDialog::OnButton)
END_MESSAGE_MAP()

}  // namespace

TEST(DialogTest, EndsInEveryWayAndGivesTheOwnerBack) {
    const std::pair<INT_PTR, std::function<void(CTestDialog&)>> cases[] = {
        {77, [](CTestDialog& dialog) { dialog.EndDialog(77); }},
        {IDABORT, [](CTestDialog& dialog) { dialog.DestroyWindow(); }},
        {IDABORT, [](CTestDialog&) { ::PostQuitMessage(3); }},
    };
    CMainWindow main;
    for (const auto& [result, end] : cases) {
        SCOPED_TRACE(&end - &cases[0].second);
        CTestDialog dialog;
        const auto endIt = [&, &end = end](DialogUser&) {
            EXPECT_FALSE(::IsWindowEnabled(main));
            EXPECT_EQ(CWnd::GetFocus(), dialog.GetDlgItem(IDC_TEST_CHECK)) << "as OnInitDialog set it";
            end(dialog);
        };
        EXPECT_EQ(dialog.Run(endIt), result);
        EXPECT_FALSE(dialog.m_hWnd);
        EXPECT_TRUE(::IsWindowEnabled(main));
        EXPECT_TRUE(result == IDABORT || CWnd::GetActiveWindow() == &main);
    }
    MSG msg;
    EXPECT_TRUE(::PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "for the outer loops";
    EXPECT_EQ(CDialog(999u).DoModal(), -1);
    EXPECT_TRUE(::IsWindowEnabled(main));
}

TEST(DialogTest, NestsOnTheWindowBelow) {
    CMainWindow main;
    CEdit child;
    ASSERT_TRUE(child.Create(0, CRect(), &main, 9));
    CTestDialog inner, outer(&child);
    inner.m_atStart = [&] {
        EXPECT_EQ(inner.GetParent(), &outer);
        EXPECT_FALSE(::IsWindowEnabled(outer));
        inner.EndDialog(8);
    };
    outer.Run([&](DialogUser& user) {
        EXPECT_EQ(outer.GetParent(), &main);
        EXPECT_EQ(inner.DoModal(), 8);
        EXPECT_TRUE(::IsWindowEnabled(outer));
        EXPECT_FALSE(::IsWindowEnabled(main));
        user.Press(VK_ESCAPE);
    });
}

TEST(DialogTest, ExceptionsStayInside) {
    MessageBoxRecorder boxes;
    for (const LPCWSTR text : {L"button", L"key"}) boxes.Expect(text, MB_ICONSTOP);
    CTestDialog dialog;
    dialog.Run([&](DialogUser& user) {
        CThrowingEdit edit;
        edit.m_nThrowAt = WM_CREATE;
        EXPECT_FALSE(edit.Create(0, CRect(), &dialog, 3));
        dialog.GetDlgItem(IDC_TEST_BUTTON)->SendMessage(BM_CLICK);
        dialog.m_edit.SetFocus();
        user.Press(VK_F2);
        dialog.m_edit.m_nThrowAt = WM_PAINT;
        dialog.m_edit.Invalidate();
        dialog.m_edit.UpdateWindow();
        EXPECT_FALSE(::GetUpdateRect(dialog.m_edit, nullptr, FALSE)) << "it counts as painted";
        user.Press(VK_ESCAPE);
    });
}

TEST(DialogTest, IdleLoopDeletesItsOwnTemporaryObjects) {
    CWnd* const older = CWnd::FromHandle(::GetDesktopWindow());
    CTestDialog dialog;
    dialog.Run([&](DialogUser& user) {
        const size_t before = mfx::Temporaries().size();
        dialog.GetDlgItem(IDOK);
        EXPECT_GT(mfx::Temporaries().size(), before);
        // On a busy machine the next tick comes before the loop is idle.
        for (int i = 0; i < 100 && mfx::Temporaries().size() > before; ++i) user.Idle();
        EXPECT_EQ(mfx::Temporaries().size(), before);
        user.Press(VK_ESCAPE);
    });
    EXPECT_EQ(older->m_hWnd, ::GetDesktopWindow());
}
