#include <afxwin.h>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "MfcTestIds.h"
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

// Runs steps from its message loop, each when it is idle after the one before; without any it ends at once.
class CTestDialog : public CDialog {
  public:
    using Step = std::function<void(CTestDialog&)>;
    explicit CTestDialog(std::vector<Step> steps, CWnd* pParent = nullptr)
        : CDialog(IDD_TEST, pParent), m_steps(std::move(steps)) {}

    void PostKey(WPARAM key) { ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, 1); }

    CThrowingEdit m_edit;
    CStatic m_missing;
    CString m_text = L"text";

  protected:
    BOOL OnInitDialog() override {
        SetTimer(0, 1, nullptr);
        if (m_steps.empty()) EndDialog(5);
        GetDlgItem(IDC_TEST_CHECK)->SetFocus();
        return CDialog::OnInitDialog() - TRUE;
    }
    void DoDataExchange(CDataExchange* pDX) override {
        DDX_Control(pDX, IDC_TEST_MISSING, m_missing);
        DDX_Text(pDX, IDC_TEST_MISSING, m_text);
        DDX_Control(pDX, IDC_TEST_EDIT, m_edit);
        DDX_Text(pDX, IDC_TEST_EDIT, m_text);
    }
    afx_msg void OnTimer(UINT_PTR nStep) {
        KillTimer(nStep);
        ASSERT_LT(nStep, m_steps.size()) << (EndDialog(-2), "the dialog does not end");
        SetTimer(nStep + 1, nStep + 1 < m_steps.size() ? 1 : 20000, nullptr);
        m_steps[nStep](*this);
    }
    afx_msg void OnButton() { throw std::runtime_error("button"); }
    DECLARE_MESSAGE_MAP()

  private:
    std::vector<Step> m_steps;
};

BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
    ON_WM_TIMER()
    ON_BN_CLICKED(IDC_TEST_BUTTON, &CTestDialog::OnButton)
END_MESSAGE_MAP()

}  // namespace

TEST(DialogTest, EndsInEveryWayAndGivesTheOwnerBack) {
    const std::pair<INT_PTR, CTestDialog::Step> cases[] = {
        {IDOK, [](auto& d) { d.PostKey(VK_RETURN); }},
        {IDCANCEL, [](auto& d) { d.PostKey(VK_ESCAPE); }},
        {IDCANCEL, [](auto& d) { d.PostMessage(WM_CLOSE); }},
        {IDOK, [](auto& d) { d.SendDlgItemMessage(IDOK, BM_CLICK); }},
        {77, [](auto& d) { d.EndDialog(77); }},
        {IDABORT, [](auto& d) { d.DestroyWindow(); }},
        {IDABORT, [](auto&) { ::PostQuitMessage(3); }},
    };
    CMainWindow main;
    for (const auto& [result, step] : cases) {
        SCOPED_TRACE(&step - &cases[0].second);
        bool isModal = false;
        const auto look = [&](CWnd& d) { isModal = d.IsWindowVisible() && !main.IsWindowEnabled(); };
        CTestDialog dialog({look, step});
        EXPECT_EQ(dialog.DoModal(), result);
        EXPECT_FALSE(!isModal || dialog.m_hWnd || dialog.m_edit.m_hWnd || !main.IsWindowEnabled());
        EXPECT_TRUE(result == IDABORT || CWnd::GetActiveWindow() == &main);
    }
    MSG msg;
    EXPECT_TRUE(::PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && msg.wParam == 3);
    EXPECT_EQ(CTestDialog({}).DoModal(), 5);
    EXPECT_EQ(CDialog(999u).DoModal(), -1);
    EXPECT_TRUE(main.IsWindowEnabled());
}

TEST(DialogTest, NestsOnTheWindowBelow) {
    CMainWindow main;
    CEdit child;
    ASSERT_TRUE(child.Create(0, CRect(), &main, 9));
    const auto lookInside = [&](CTestDialog& d) {
        EXPECT_FALSE(d.GetParent() == &main || d.GetParent()->IsWindowEnabled() || main.IsWindowEnabled());
        d.EndDialog(8);
    };
    const auto nest = [&](CTestDialog& d) {
        EXPECT_EQ(d.GetParent(), &main);
        EXPECT_EQ(CTestDialog({lookInside}).DoModal(), 8);
        EXPECT_TRUE(d.IsWindowEnabled() && !main.IsWindowEnabled() && CWnd::GetActiveWindow() == &d);
        d.EndDialog(7);
    };
    EXPECT_EQ(CTestDialog({nest}, &child).DoModal(), 7);
    AfxGetApp()->m_pMainWnd = nullptr;
    EXPECT_EQ(AfxGetMainWnd(), &main) << "the active window";
}

TEST(DialogTest, ExchangesDataAndKeepsTheFocus) {
    const auto edit = [](CTestDialog& d) {
        EXPECT_TRUE(CWnd::GetFocus() == d.GetDlgItem(IDC_TEST_CHECK) && !d.m_missing.GetSafeHwnd());
        d.m_edit.ReplaceSel(L"more ");
        d.PostKey(VK_RETURN);
    };
    CTestDialog dialog({edit});
    for (int i = 0; i < 2; ++i) EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.m_text, L"more more text");
}

TEST(DialogTest, ExceptionsStayInside) {
    const CWinApp app;  // shows boxes, unlike the one of other tests
    MessageBoxRecorder boxes;
    for (const LPCWSTR text : {L"button", L"key"}) boxes.Expect(text, MB_ICONSTOP);
    CMainWindow main;
    CThrowingEdit edit;
    edit.m_nThrowAt = WM_CREATE;
    EXPECT_FALSE(edit.Create(0, CRect(), &main, 3) || edit.m_hWnd);
    const auto click = [](CTestDialog& d) { d.SendDlgItemMessage(IDC_TEST_BUTTON, BM_CLICK); };
    const auto pressF2 = [](CTestDialog& d) { d.m_edit.SetFocus(), d.PostKey(VK_F2); };
    const auto paint = [](CTestDialog& d) {
        d.m_edit.m_nThrowAt = WM_PAINT;
        d.m_edit.RedrawWindow();
        EXPECT_FALSE(::GetUpdateRect(d.m_edit, nullptr, FALSE)) << "it counts as painted";
        d.EndDialog(6);
    };
    EXPECT_EQ(CTestDialog({click, pressF2, paint}).DoModal(), 6);
}

TEST(DialogTest, IdleLoopDeletesItsOwnTemporaryObjects) {
    CWnd* const older = CWnd::FromHandle(::GetDesktopWindow());
    std::vector<size_t> counts;
    const auto count = [&](CTestDialog&) { counts.push_back(mfx::Temporaries().size()); };
    const auto make = [&](CTestDialog& d) { d.GetDlgItem(IDOK), d.GetDlgItem(IDCANCEL), count(d); };
    CTestDialog({count, make, count, [](auto& d) { d.EndDialog(1); }}).DoModal();
    EXPECT_TRUE(counts[1] > counts[0] && counts[2] == counts[0]);
    EXPECT_EQ(older->m_hWnd, ::GetDesktopWindow());
}
