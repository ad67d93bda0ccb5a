#include <afxwin.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <thread>

#include "MfcTestIds.h"

namespace {

struct CTopLevel : CWnd {
    CTopLevel() { CreateEx(0, L"STATIC", L"top", WS_POPUP, CRect(0, 0, 100, 50), nullptr, 0); }
};

// Deletes itself in the middle of a message, or with its window.
class CSelfDeleting : public CWnd {
  public:
    explicit CSelfDeleting(int& deleted) : m_deleted(deleted) {}
    ~CSelfDeleting() override { ++m_deleted; }

  protected:
    void PostNcDestroy() override { delete this; }
    afx_msg LRESULT OnDelete(WPARAM, LPARAM) { return delete this, 3; }
    DECLARE_MESSAGE_MAP()

  private:
    int& m_deleted;
};

BEGIN_MESSAGE_MAP(CSelfDeleting, CWnd)
    ON_MESSAGE(WM_APP, &CSelfDeleting::OnDelete)
END_MESSAGE_MAP()

// Paints a bitmap over its client area; keeps count of the steps of its window's life.
class CPicture : public CStatic {
  public:
    UINT m_nFirstMessage = 0;
    int m_nPreparations = 0, m_nEnds = 0, m_createResult = 0;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!m_nFirstMessage) m_nFirstMessage = message;
        return CStatic::WindowProc(message, wParam, lParam);
    }
    void PreSubclassWindow() override { ++m_nPreparations; }
    void PostNcDestroy() override { ++m_nEnds; }
    afx_msg int OnCreate(LPCREATESTRUCT p) { return m_createResult ? m_createResult : CStatic::OnCreate(p); }
    afx_msg void OnPaint() {
        CPaintDC dc(this);
        CDC memory;
        CBitmap bitmap;
        BITMAP size;
        ASSERT_TRUE(memory.CreateCompatibleDC(&dc) && bitmap.LoadBitmap(IDB_TEST) && bitmap.GetBitmap(&size));
        CBitmap* const pOld = memory.SelectObject(&bitmap);
        CRect rect;
        GetClientRect(rect);
        dc.SetStretchBltMode(COLORONCOLOR);
        dc.StretchBlt(0, 0, rect.Width(), rect.Height(), &memory, 0, 0, size.bmWidth, size.bmHeight, SRCCOPY);
        dc.FillSolidRect(CRect(0, 0, 1, 1), RGB(0, 255, 0));
        memory.SelectObject(pOld);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPicture, CStatic)
    ON_WM_CREATE()
    ON_WM_PAINT()
END_MESSAGE_MAP()

}  // namespace

TEST(WindowTest, ObjectFollowsTheWindowThatItCreates) {
    CTopLevel top;
    CPicture picture;
    ASSERT_TRUE(picture.Create(nullptr, 0, CRect(0, 0, 50, 20), &top, 2));
    EXPECT_TRUE(picture.m_nFirstMessage == WM_NCCREATE && picture.m_nPreparations == 1);
    EXPECT_TRUE(top.GetDlgItem(2) == &picture && picture.GetParent() == &top);
    EXPECT_TRUE(picture.DestroyWindow() && !picture.m_hWnd && picture.m_nEnds == 1);
    picture.m_createResult = -1;
    EXPECT_FALSE(picture.Create(nullptr, 0, CRect(), &top, 3) || picture.m_hWnd);
    EXPECT_FALSE(picture.CreateEx(0, L"no such class", nullptr, 0, CRect(), &top, 3));
    picture.m_createResult = 0;
    EXPECT_TRUE(picture.Create(nullptr, 0, CRect(), &top, 3));
    EXPECT_FALSE(picture.Create(nullptr, 0, CRect(), &top, 4)) << "one window at a time";
    top.DestroyWindow();
    EXPECT_TRUE(!picture.m_hWnd && picture.m_nEnds == 3);
}

TEST(WindowTest, SubclassedControlsOfAnyClassGoOnWorking) {
    const INITCOMMONCONTROLSEX listView{sizeof listView, ICC_LISTVIEW_CLASSES};
    ::InitCommonControlsEx(&listView);
    CTopLevel top;
    for (const LPCWSTR name : {L"EDIT", L"BUTTON", L"COMBOBOX", L"SysListView32"}) {
        SCOPED_TRACE(CString(name).GetString());
        const HWND hWnd = ::CreateWindowW(name, L"", WS_CHILD, 0, 0, 50, 50, top, (HMENU)9, nullptr, nullptr);
        const LONG_PTR own = ::GetWindowLongPtrW(hWnd, GWLP_WNDPROC);
        CWnd wnd, second;
        EXPECT_TRUE(wnd.SubclassDlgItem(9, &top));
        EXPECT_FALSE(second.SubclassWindow(hWnd) || second.Attach(hWnd) || wnd.Attach(top));
        std::thread([&] { EXPECT_FALSE(second.SubclassWindow(hWnd)); }).join();
        wnd.SetWindowText(L"one");
        EXPECT_EQ(wnd.Detach(), hWnd);
        CString text;
        EXPECT_EQ(top.GetDlgItemText(9, text), 3) << "it still has its own procedure";
        EXPECT_TRUE(second.SubclassWindow(hWnd));
        EXPECT_EQ(second.UnsubclassWindow(), hWnd);
        EXPECT_EQ(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC), own);
        ::DestroyWindow(hWnd);
    }
}

TEST(WindowTest, ObjectMayBeDeletedInItsOwnHandler) {
    int deleted = 0;
    for (const UINT message : {UINT{WM_APP}, UINT{WM_CLOSE}}) {
        auto* const wnd = new CSelfDeleting(deleted);
        ASSERT_TRUE(wnd->CreateEx(0, L"STATIC", nullptr, WS_POPUP, CRect(), nullptr, 0));
        const HWND hWnd = wnd->m_hWnd;
        EXPECT_EQ(::SendMessageW(hWnd, message, 0, 0), message == WM_APP ? 3 : 0);
        EXPECT_FALSE(::IsWindow(hWnd));
    }
    EXPECT_EQ(deleted, 2);
}

TEST(WindowTest, TemporaryObjectsOwnNothing) {
    CTopLevel top;
    const HWND hWnd = ::CreateWindowW(L"EDIT", L"", WS_CHILD, 0, 0, 9, 9, top, nullptr, nullptr, nullptr);
    CWnd* const temporary = CWnd::FromHandle(hWnd);
    EXPECT_EQ(CWnd::FromHandle(hWnd), temporary);
    EXPECT_FALSE(CWnd::FromHandlePermanent(hWnd) || CWnd::FromHandle(nullptr));
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(hWnd));
    CEdit permanent;
    EXPECT_TRUE(permanent.Attach(hWnd) && CWnd::FromHandle(hWnd) == &permanent);
}

TEST(WindowTest, PaintsWithoutLeavingHandles) {
    // The place in the table of handles that comes next. Wine does not count handles.
    const auto next = [] {
        CBitmap bitmap;
        return bitmap.LoadBitmap(IDB_TEST) ? LOWORD(bitmap.m_hObject) : 0;
    };
    int first = 0;
    for (int i = 0; i < 20; ++i) {
        if (i == 5) first = next();
        CPicture picture;
        picture.CreateEx(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 40, 20), nullptr, 0);
        picture.RedrawWindow();
        CDC* const pDC = picture.GetDC();
        EXPECT_EQ(::GetPixel(*pDC, 10, 15), RGB(255, 0, 0));
        EXPECT_EQ(::GetPixel(*pDC, 30, 5), RGB(0, 0, 255));
        EXPECT_EQ(::GetPixel(*pDC, 0, 0), RGB(0, 255, 0));
        EXPECT_TRUE(picture.ReleaseDC(pDC));
    }
    EXPECT_NEAR(next(), first, 8);
    EXPECT_TRUE(::EnumThreadWindows(
        ::GetCurrentThreadId(), [](HWND, LPARAM) { return FALSE; }, 0));
}

TEST(WindowTest, ControlsDoWhatTheyAreTold) {
    CTopLevel top;
    CComboBox combo;
    ASSERT_TRUE(combo.Create(CBS_DROPDOWN, CRect(0, 0, 90, 200), &top, 1));
    EXPECT_TRUE(combo.AddString(L"Steel") == 0 && combo.AddString(L"Iron") == 1 && combo.GetCount() == 2);
    EXPECT_TRUE(combo.SelectString(-1, L"ir") == 1 && combo.GetCurSel() == 1 && combo.GetLBTextLen(1) == 4);
    EXPECT_TRUE(combo.FindStringExact(-1, L"steel") == 0 && combo.FindStringExact(-1, L"stee") == CB_ERR);
    CString text;
    combo.GetLBText(1, text);
    EXPECT_EQ(text, L"Iron");
    combo.GetLBText(7, text);
    EXPECT_TRUE(text.IsEmpty() && combo.SetItemData(1, 0x123456789A) != CB_ERR);
    EXPECT_EQ(combo.GetItemData(1), 0x123456789Au);

    CEdit edit;
    ASSERT_TRUE(edit.Create(0, CRect(0, 0, 90, 20), &top, 2));
    edit.SetWindowText(L"abcdef");
    edit.SetSel(1, 3);
    edit.ReplaceSel(L"-");
    int start = 0, end = 0;
    edit.GetSel(start, end);
    edit.GetWindowText(text);
    EXPECT_TRUE(text == L"a-def" && start == 2 && end == 2);
    edit.LimitText(6);
    for (const wchar_t ch : {L'x', L'y'}) edit.SendMessage(WM_CHAR, ch);
    EXPECT_EQ(edit.GetWindowTextLength(), 6);

    CFont font;
    LOGFONT wanted{}, read{};
    wanted.lfHeight = -20;
    ASSERT_TRUE(font.CreateFontIndirect(&wanted));
    edit.SetFont(&font);
    EXPECT_TRUE(edit.GetFont()->GetLogFont(&read) && read.lfHeight == -20);
    EXPECT_TRUE(edit.ModifyStyle(ES_LEFT, ES_CENTER) && !edit.ModifyStyle(0, ES_CENTER));
}
