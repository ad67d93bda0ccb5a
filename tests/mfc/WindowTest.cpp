#include <afxwin.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <thread>

#include "MfcTestIds.h"

namespace {

struct CTopLevel : CWnd {
    CTopLevel() { CreateEx(0, L"STATIC", L"top", WS_POPUP, CRect(0, 0, 100, 50), nullptr, 0); }
};

// Counts the messages that mark a window's life.
class CLifeEdit : public CEdit {
  public:
    int m_first = 0, m_ends = 0, m_created = 0, m_presubclassed = 0;
    int m_createResult = 0;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!m_first) m_first = static_cast<int>(message);
        return CEdit::WindowProc(message, wParam, lParam);
    }
    void PreSubclassWindow() override { ++m_presubclassed; }
    void PostNcDestroy() override { ++m_ends; }
    afx_msg int OnCreate(LPCREATESTRUCT pCreate) {
        return ++m_created, m_createResult ? m_createResult : CEdit::OnCreate(pCreate);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CLifeEdit, CEdit)
    ON_WM_CREATE()
END_MESSAGE_MAP()

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

// Paints a bitmap over its whole client area.
class CPicture : public CStatic {
  public:
    CPicture() { m_bitmap.LoadBitmap(IDB_TEST); }

  protected:
    afx_msg void OnPaint() {
        CPaintDC dc(this);
        CDC memory;
        memory.CreateCompatibleDC(&dc);
        CBitmap* const pOld = memory.SelectObject(&m_bitmap);
        BITMAP info;
        m_bitmap.GetBitmap(&info);
        CRect rect;
        GetClientRect(rect);
        dc.SetStretchBltMode(COLORONCOLOR);
        dc.StretchBlt(0, 0, rect.Width(), rect.Height(), &memory, 0, 0, info.bmWidth, info.bmHeight, SRCCOPY);
        dc.FillSolidRect(CRect(0, 0, 1, 1), RGB(0, 255, 0));
        memory.SelectObject(pOld);
    }
    DECLARE_MESSAGE_MAP()

  private:
    CBitmap m_bitmap;
};

BEGIN_MESSAGE_MAP(CPicture, CStatic)
    ON_WM_PAINT()
END_MESSAGE_MAP()

}  // namespace

TEST(WindowTest, ObjectGetsAllMessagesOfTheWindowThatItCreates) {
    CTopLevel top;
    CLifeEdit edit;
    ASSERT_TRUE(edit.Create(ES_MULTILINE, CRect(0, 0, 50, 20), &top, 2));
    EXPECT_EQ(edit.m_first, static_cast<int>(WM_NCCREATE));
    EXPECT_TRUE(edit.m_created == 1 && edit.m_presubclassed == 1);
    EXPECT_TRUE(CWnd::FromHandlePermanent(edit.m_hWnd) == &edit && top.GetDlgItem(2) == &edit);
    EXPECT_TRUE(edit.DestroyWindow() && !edit.m_hWnd && edit.m_ends == 1);

    edit.m_createResult = -1;
    EXPECT_FALSE(edit.Create(0, CRect(), &top, 3));
    EXPECT_TRUE(!edit.m_hWnd && edit.m_ends == 2);
    EXPECT_FALSE(edit.CreateEx(0, L"no such class", nullptr, 0, CRect(), &top, 3));
    edit.m_createResult = 0;
    EXPECT_TRUE(edit.Create(0, CRect(), &top, 3));
    top.DestroyWindow();
    EXPECT_TRUE(!edit.m_hWnd && edit.m_ends == 3);
}

TEST(WindowTest, SubclassedControlsOfAnyClassGoOnWorking) {
    INITCOMMONCONTROLSEX all{sizeof all, ICC_LISTVIEW_CLASSES};
    ::InitCommonControlsEx(&all);
    CTopLevel top;
    for (const LPCWSTR name : {L"EDIT", L"BUTTON", L"COMBOBOX", L"SysListView32"}) {
        SCOPED_TRACE(CString(name).GetString());
        const HWND hWnd = ::CreateWindowW(name, L"", WS_CHILD, 0, 0, 50, 50, top, (HMENU)9, nullptr, nullptr);
        const LONG_PTR own = ::GetWindowLongPtrW(hWnd, GWLP_WNDPROC);
        CWnd wnd, second;
        EXPECT_TRUE(wnd.SubclassDlgItem(9, &top));
        EXPECT_FALSE(second.SubclassWindow(hWnd) || second.Attach(hWnd) || wnd.Attach(top));
        std::thread([&] {
            EXPECT_FALSE(second.SubclassWindow(hWnd) || CWnd::FromHandlePermanent(hWnd));
        }).join();
        wnd.SetWindowText(L"one");
        // Without its object the window still has its own procedure.
        EXPECT_EQ(wnd.Detach(), hWnd);
        CString text;
        EXPECT_EQ(top.GetDlgItemText(9, text), 3);
        EXPECT_TRUE(second.SubclassWindow(hWnd));
        EXPECT_EQ(second.UnsubclassWindow(), hWnd);
        EXPECT_EQ(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC), own);
        ::DestroyWindow(hWnd);
        EXPECT_FALSE(top.GetDlgItem(9));
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
    const HWND hWnd = ::CreateWindowW(L"EDIT", L"", WS_CHILD, 0, 0, 50, 50, top, nullptr, nullptr, nullptr);
    CWnd* const temporary = CWnd::FromHandle(hWnd);
    EXPECT_EQ(CWnd::FromHandle(hWnd), temporary);
    EXPECT_FALSE(CWnd::FromHandlePermanent(hWnd) || CWnd::FromHandle(nullptr));
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(hWnd));
    CEdit permanent;
    EXPECT_TRUE(permanent.Attach(hWnd) && CWnd::FromHandle(hWnd) == &permanent);
}

TEST(WindowTest, PaintsABitmapScaled) {
    CPicture picture;
    ASSERT_TRUE(
        picture.CreateEx(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, CRect(0, 0, 40, 20), nullptr, 0));
    picture.RedrawWindow();
    CDC* const pDC = picture.GetDC();
    EXPECT_EQ(::GetPixel(*pDC, 10, 15), RGB(255, 0, 0));
    EXPECT_EQ(::GetPixel(*pDC, 30, 5), RGB(0, 0, 255));
    EXPECT_EQ(::GetPixel(*pDC, 0, 0), RGB(0, 255, 0));
    picture.ReleaseDC(pDC);
}

TEST(WindowTest, LeaksNoHandles) {
    const auto user = [] { return ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS); };
    const auto gdi = [] { return ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS); };
    DWORD before = user(), beforeGdi = gdi();
    printf("user %lu gdi %lu\n", before, beforeGdi);
    for (int i = 0; i < 100; ++i) {
        CTopLevel top;
        CPicture picture;
        picture.CStatic::Create(L"", WS_VISIBLE, CRect(0, 0, 9, 9), &top, 1);
        top.ShowWindow(SW_SHOW);
        picture.RedrawWindow();
        if (i == 1) printf("user %lu gdi %lu\n", user(), gdi());
    }
    printf("user %lu gdi %lu\n", user(), gdi());
}

TEST(WindowTest, ControlsDoWhatTheyAreTold) {
    CTopLevel top;
    CComboBox combo;
    ASSERT_TRUE(combo.Create(CBS_DROPDOWN, CRect(0, 0, 90, 200), &top, 1));
    EXPECT_TRUE(combo.AddString(L"Steel") == 0 && combo.AddString(L"Gray Iron") == 1 &&
                combo.GetCount() == 2);
    EXPECT_TRUE(combo.SelectString(-1, L"gray") == 1 && combo.FindStringExact(-1, L"steel") == 0);
    EXPECT_EQ(combo.FindStringExact(-1, L"stee"), CB_ERR);
    EXPECT_TRUE(combo.GetCurSel() == 1 && combo.GetLBTextLen(1) == 9);
    combo.SetItemData(1, 0x123456789A);
    EXPECT_EQ(combo.GetItemData(1), 0x123456789Au);
    CString text = L"x";
    combo.GetLBText(1, text);
    EXPECT_EQ(text, L"Gray Iron");
    combo.GetLBText(7, text);
    EXPECT_TRUE(text.IsEmpty());
    combo.ShowDropDown();
    EXPECT_TRUE(combo.GetDroppedState());
    combo.ResetContent();
    EXPECT_EQ(combo.GetCount(), 0);

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

    CButton check;
    ASSERT_TRUE(check.Create(L"Check", BS_AUTOCHECKBOX, CRect(), &top, 3));
    check.SetCheck(BST_CHECKED);
    EXPECT_EQ(check.GetCheck(), BST_CHECKED);

    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadBitmap(IDB_TEST) && !CBitmap().LoadBitmap(99));
    CStatic picture;
    ASSERT_TRUE(picture.Create(nullptr, SS_BITMAP, CRect(), &top));
    EXPECT_EQ(picture.SetBitmap(bitmap), nullptr);
    EXPECT_EQ(picture.GetBitmap(), HBITMAP(bitmap));

    CFont font;
    LOGFONT description{}, read{};
    description.lfHeight = -20;
    ASSERT_TRUE(font.CreateFontIndirect(&description) && !font.CreateFontIndirect(&description));
    edit.SetFont(&font);
    EXPECT_TRUE(edit.GetFont()->GetLogFont(&read) && read.lfHeight == -20);
    EXPECT_TRUE(edit.ModifyStyle(ES_LEFT, ES_CENTER) && !edit.ModifyStyle(0, ES_CENTER));
    CRect rect(1, 2, 3, 4), same = rect;
    edit.ClientToScreen(rect);
    edit.ScreenToClient(rect);
    EXPECT_TRUE(rect == same);
}
