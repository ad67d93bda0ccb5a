#include <afxwin.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <thread>

#include "MfcTestIds.h"
#include "support/GuiObjects.h"

namespace {

// Paints a bitmap over its client area; notes its window's first message and end, and may go with it.
class CPicture : public CStatic {
  public:
    UINT m_nFirstMessage = 0;
    int m_nEnds = 0, m_createResult = 0;
    bool* m_pDeleted = nullptr;

    BOOL CreateTop() { return CreateEx(0, L"STATIC", L"", WS_POPUP, CRect(0, 0, 40, 20), nullptr, 0); }
    ~CPicture() override {
        if (m_pDeleted) *m_pDeleted = true;
    }

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!m_nFirstMessage) m_nFirstMessage = message;
        return CStatic::WindowProc(message, wParam, lParam);
    }
    void PostNcDestroy() override {
        ++m_nEnds;
        if (m_pDeleted) delete this;
    }
    afx_msg LRESULT OnDelete(WPARAM, LPARAM) { return delete this, 3; }
    afx_msg int OnCreate(LPCREATESTRUCT p) { return m_createResult ? m_createResult : CStatic::OnCreate(p); }
    afx_msg void OnPaint() {
        CPaintDC dc(this);
        CDC memory;
        CBitmap bitmap;
        BITMAP size;
        ASSERT_TRUE(memory.CreateCompatibleDC(&dc) && bitmap.LoadBitmap(IDB_TEST) && bitmap.GetBitmap(&size));
        CBitmap* const pOld = memory.SelectObject(&bitmap);
        dc.SetStretchBltMode(COLORONCOLOR);
        dc.StretchBlt(0, 0, 40, 20, &memory, 0, 0, size.bmWidth, size.bmHeight, SRCCOPY);
        dc.FillSolidRect(CRect(0, 0, 1, 1), RGB(0, 255, 0));
        memory.SelectObject(pOld);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPicture, CStatic)
    ON_WM_CREATE()
    ON_WM_PAINT()
    ON_MESSAGE(WM_APP, &CPicture::OnDelete)
END_MESSAGE_MAP()

}  // namespace

TEST(WindowTest, ObjectFollowsTheWindowThatItCreates) {
    CPicture top, child;
    ASSERT_TRUE(top.CreateTop() && child.Create(nullptr, 0, CRect(0, 0, 50, 20), &top, 2));
    EXPECT_EQ(child.m_nFirstMessage, UINT{WM_NCCREATE});
    EXPECT_TRUE(top.GetDlgItem(2) == &child && child.GetParent() == &top);
    EXPECT_FALSE(child.Create(nullptr, 0, CRect(), &top, 4)) << "one window at a time";
    EXPECT_TRUE(child.DestroyWindow() && !child.m_hWnd && child.m_nEnds == 1);
    child.m_createResult = -1;
    EXPECT_FALSE(child.Create(nullptr, 0, CRect(), &top, 3) || child.m_hWnd);
    child.m_createResult = 0;
    EXPECT_TRUE(child.Create(nullptr, 0, CRect(), &top, 3) && top.DestroyWindow());
    EXPECT_TRUE(!child.m_hWnd && child.m_nEnds == 3);
}

TEST(WindowTest, SubclassedControlsOfAnyClassGoOnWorking) {
    const INITCOMMONCONTROLSEX listView{sizeof listView, ICC_LISTVIEW_CLASSES};
    ::InitCommonControlsEx(&listView);
    CPicture top;
    ASSERT_TRUE(top.CreateTop());
    for (const LPCWSTR name : {L"EDIT", L"BUTTON", L"COMBOBOX", L"SysListView32"}) {
        SCOPED_TRACE(CString(name).GetString());
        const HWND hWnd = ::CreateWindowW(name, L"", WS_CHILD, 0, 0, 50, 50, top, (HMENU)9, nullptr, nullptr);
        const LONG_PTR own = ::GetWindowLongPtrW(hWnd, GWLP_WNDPROC);
        CWnd* const temporary = top.GetDlgItem(9);
        EXPECT_TRUE(CWnd::FromHandle(hWnd) == temporary && !CWnd::FromHandlePermanent(hWnd));
        CWnd wnd, second;
        EXPECT_TRUE(wnd.SubclassDlgItem(9, &top) && top.GetDlgItem(9) == &wnd);
        EXPECT_FALSE(second.SubclassWindow(hWnd) || second.Attach(hWnd) || wnd.Attach(top));
        std::thread([&] { EXPECT_FALSE(second.SubclassWindow(hWnd)); }).join();
        wnd.SetWindowText(L"one");
        EXPECT_EQ(wnd.Detach(), hWnd);
        CString text;
        EXPECT_EQ(top.GetDlgItemText(9, text), 3) << "it still has its own procedure";
        EXPECT_TRUE(second.SubclassWindow(hWnd) && second.UnsubclassWindow() == hWnd);
        EXPECT_EQ(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC), own);
        CWnd::DeleteTempMap();
        EXPECT_TRUE(::DestroyWindow(hWnd));
    }
}

TEST(WindowTest, ObjectMayBeDeletedInItsOwnHandler) {
    for (const UINT message : {UINT{WM_APP}, UINT{WM_CLOSE}}) {
        bool isDeleted = false;
        auto* const wnd = new CPicture;
        wnd->m_pDeleted = &isDeleted;
        ASSERT_TRUE(wnd->CreateTop());
        const HWND hWnd = wnd->m_hWnd;
        EXPECT_EQ(::SendMessageW(hWnd, message, 0, 0), message == WM_APP ? 3 : 0);
        EXPECT_TRUE(isDeleted && !::IsWindow(hWnd));
    }
}

TEST(WindowTest, PaintsWithoutLeavingHandles) {
    CPicture picture;
    ASSERT_TRUE(picture.CreateTop());
    picture.ShowWindow(SW_SHOWNOACTIVATE);
    const GuiObjects before = CountGuiObjects();
    for (int i = 0; i < 300; ++i) {
        picture.RedrawWindow();
        CDC* const pDC = picture.GetDC();
        EXPECT_TRUE(::GetPixel(*pDC, 10, 15) == RGB(255, 0, 0) && ::GetPixel(*pDC, 30, 5) == RGB(0, 0, 255));
        EXPECT_EQ(::GetPixel(*pDC, 0, 0), RGB(0, 255, 0));
        picture.ReleaseDC(pDC);
    }
    EXPECT_TRUE(CountGuiObjects() == before);
}
