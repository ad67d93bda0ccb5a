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
        CreateEx(0, L"STATIC", L"main", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 300, 200), nullptr, 0);
        AfxGetApp()->m_pMainWnd = this;
    }
    ~CMainWindow() override { AfxGetApp()->m_pMainWnd = nullptr; }
};

// Takes keys before the dialog does.
struct CKeyEdit : CEdit {
    BOOL PreTranslateMessage(MSG* pMsg) override {
        if (pMsg->message != WM_KEYDOWN || pMsg->wParam != VK_F2) return FALSE;
        ++m_nKeys;
        throw std::runtime_error("F2");
    }
    int m_nKeys = 0;
};

// Runs steps from its message loop, one after the other has come to rest.
class CTestDialog : public CDialog {
  public:
    using Step = std::function<void(CTestDialog&)>;
    explicit CTestDialog(std::vector<Step> steps, CWnd* pParent = nullptr, UINT nId = IDD_TEST)
        : CDialog(nId, pParent), m_steps(std::move(steps)) {}

    void PostKey(WPARAM key) { ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, 1); }

    CKeyEdit m_edit;
    CStatic m_missing;
    CString m_text = L"text";
    int m_index = 1, m_check = BST_CHECKED;
    std::function<BOOL(CTestDialog&)> m_init = [](auto&) { return TRUE; };

  protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        SendDlgItemMessage(IDC_TEST_COMBO, CB_SETCURSEL, 1);
        SetTimer(1, 20000, nullptr);
        PostMessage(WM_APP);
        return m_init(*this);
    }
    void DoDataExchange(CDataExchange* pDX) override {
        DDX_Control(pDX, IDC_TEST_MISSING, m_missing);
        DDX_Text(pDX, IDC_TEST_MISSING, m_text);
        DDX_Control(pDX, IDC_TEST_EDIT, m_edit);
        DDX_Text(pDX, IDC_TEST_EDIT, m_text);
    }
    afx_msg LRESULT OnStep(WPARAM nStep, LPARAM) {
        if (nStep >= m_steps.size()) return 0;
        m_steps[nStep](*this);
        return PostMessage(WM_APP, nStep + 1);
    }
    afx_msg void OnTimer(UINT_PTR) {
        ADD_FAILURE() << "the dialog does not end";
        EndDialog(-2);
    }
    afx_msg void OnButton() { throw std::runtime_error("button"); }
    DECLARE_MESSAGE_MAP()

  private:
    std::vector<Step> m_steps;
};

BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
    ON_MESSAGE(WM_APP, &CTestDialog::OnStep)
    ON_WM_TIMER()
    ON_BN_CLICKED(IDC_TEST_BUTTON, &CTestDialog::OnButton)
END_MESSAGE_MAP()

}  // namespace

TEST(DialogTest, EndsInEveryWayAndGivesTheOwnerBack) {
    const struct {
        LPCWSTR name;
        CTestDialog::Step step;
        INT_PTR result;
    } cases[] = {
        {L"Enter", [](auto& d) { d.PostKey(VK_RETURN); }, IDOK},
        {L"Escape", [](auto& d) { d.PostKey(VK_ESCAPE); }, IDCANCEL},
        {L"close", [](auto& d) { d.PostMessage(WM_CLOSE); }, IDCANCEL},
        {L"click", [](auto& d) { d.SendDlgItemMessage(IDOK, BM_CLICK); }, IDOK},
        {L"EndDialog", [](auto& d) { d.EndDialog(77); }, 77},
        {L"destroyed", [](auto& d) { d.DestroyWindow(); }, IDABORT},
        {L"end of the program", [](auto&) { ::PostQuitMessage(3); }, IDABORT},
    };
    CMainWindow main;
    for (const auto& [name, step, result] : cases) {
        SCOPED_TRACE(name);
        CTestDialog dialog({[&](auto& d) {
            EXPECT_TRUE(d.IsWindowVisible() && !main.IsWindowEnabled() && CWnd::GetActiveWindow() == &d);
            step(d);
        }});
        EXPECT_EQ(dialog.DoModal(), result);
        EXPECT_FALSE(dialog.m_hWnd || dialog.m_edit.m_hWnd);
        EXPECT_TRUE(main.IsWindowEnabled());
        EXPECT_TRUE(result == IDABORT || CWnd::GetActiveWindow() == &main);
    }
    MSG msg;
    EXPECT_TRUE(::PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && msg.wParam == 3);

    CTestDialog endsAtOnce({});
    endsAtOnce.m_init = [](auto& d) { return d.EndDialog(5), TRUE; };
    EXPECT_EQ(endsAtOnce.DoModal(), 5);
    EXPECT_EQ(CTestDialog({}, nullptr, 999).DoModal(), -1);
    EXPECT_TRUE(main.IsWindowEnabled());
}

TEST(DialogTest, NestsOnTheWindowBelow) {
    CMainWindow main;
    CEdit child;
    ASSERT_TRUE(child.Create(0, CRect(), &main, 9));
    CTestDialog outer(
        {[&](CTestDialog& d) {
            EXPECT_EQ(d.GetParent(), &main);
            CTestDialog inner({[&](CTestDialog& i) {
                EXPECT_TRUE(i.GetParent() == &d && !d.IsWindowEnabled() && !main.IsWindowEnabled());
                i.PostKey(VK_ESCAPE);
            }});
            EXPECT_EQ(inner.DoModal(), IDCANCEL);
            EXPECT_TRUE(d.IsWindowEnabled() && !main.IsWindowEnabled() && CWnd::GetActiveWindow() == &d);
            d.EndDialog(7);
        }},
        &child);
    EXPECT_EQ(outer.DoModal(), 7);
    AfxGetApp()->m_pMainWnd = nullptr;
    EXPECT_EQ(AfxGetMainWnd(), &main) << "the active window";
}

TEST(DialogTest, ExchangesDataAndSetsTheFocus) {
    CTestDialog dialog({[](CTestDialog& d) {
        EXPECT_EQ(CWnd::GetFocus(), &d.m_edit);
        EXPECT_FALSE(d.m_missing.GetSafeHwnd());
        CString text;
        EXPECT_TRUE(d.GetDlgItemText(IDC_TEST_EDIT, text) == 4 && text == L"text");
        d.SetDlgItemText(IDC_TEST_EDIT, L"changed");
        d.SendDlgItemMessage(IDC_TEST_CHECK, BM_CLICK);
        d.PostKey(VK_RETURN);
    }});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(dialog.m_text == L"changed" && dialog.m_check == BST_UNCHECKED);
    // The same object again.
    CTestDialog again({[](CTestDialog& d) { d.PostKey(VK_ESCAPE); }});
    again.m_init = [](CTestDialog& d) { return d.GetDlgItem(IDCANCEL)->SetFocus(), FALSE; };
}

TEST(DialogTest, ExceptionsStayInside) {
    const CWinApp app;  // shows boxes, unlike the one of other tests
    MessageBoxRecorder boxes;
    boxes.Expect(L"button", MB_ICONSTOP);
    boxes.Expect(L"F2", MB_ICONSTOP);
    CTestDialog dialog({[](CTestDialog& d) { d.SendDlgItemMessage(IDC_TEST_BUTTON, BM_CLICK); },
                        [](CTestDialog& d) {
                            d.m_edit.SetFocus();
                            d.PostKey(VK_F2);
                        },
                        [](CTestDialog& d) { d.EndDialog(6); }});
    EXPECT_EQ(dialog.DoModal(), 6);
    EXPECT_EQ(dialog.m_edit.m_nKeys, 1);
}

TEST(DialogTest, IdleLoopDeletesItsOwnTemporaryObjects) {
    CMainWindow main;
    const HWND desktop = ::GetDesktopWindow();
    CWnd* const older = CWnd::FromHandle(desktop);
    const size_t count = mfx::Temporaries().size();
    size_t during = 0, idle = 0;
    CTestDialog dialog({[&](CTestDialog& d) {
                            d.GetDlgItem(IDOK);
                            during = mfx::Temporaries().size();
                        },
                        [](CTestDialog&) {},
                        [&](CTestDialog& d) {
                            idle = mfx::Temporaries().size();
                            d.EndDialog(1);
                        }});
    dialog.DoModal();
    EXPECT_GT(during, count);
    EXPECT_LE(idle, count + 1);
    EXPECT_EQ(older->m_hWnd, desktop);
}
