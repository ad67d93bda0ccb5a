#include <afxwin.h>
#include <commctrl.h>

#include <gtest/gtest.h>

namespace {

CString g_trace;  // what the handlers were given

template <class... Values>
int Trace(LPCWSTR name, Values... values) {
    g_trace += name;
    (g_trace.AppendFormat(L" %d", static_cast<int>(values)), ...);
    g_trace += L";";
    return 5;
}

CString TakeTrace() {
    const CString trace = g_trace;
    g_trace.Empty();
    return trace;
}

const HBRUSH kBrush = static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH));

class CProbeBase : public CWnd {
  protected:
    afx_msg void OnBase() { Trace(L"base"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CProbeBase, CWnd)
    ON_COMMAND(40, &CProbeBase::OnBase)
    ON_EN_CHANGE(2, &CProbeBase::OnBase)
END_MESSAGE_MAP()

// A handler for each way in which arguments are taken from a message.
class CProbe : public CProbeBase {
  private:
    afx_msg void OnSize(UINT nType, int cx, int cy) { Trace(L"size", nType, cx, cy); }
    afx_msg void OnActivate(UINT n, CWnd* pWnd, BOOL b) { Trace(L"activate", n, pWnd == this, b); }
    afx_msg HBRUSH OnCtlColor(CDC*, CWnd* pWnd, UINT n) { return Trace(L"color", pWnd == this, n), kBrush; }
    afx_msg void OnLButtonDown(UINT nFlags, CPoint p) { Trace(L"down", nFlags, p.x, p.y); }
    afx_msg BOOL OnMouseWheel(UINT n, short z, CPoint p) { return Trace(L"wheel", n, z, p.x, p.y); }
    afx_msg void OnVScroll(UINT n, UINT nPos, CScrollBar* p) { Trace(L"scroll", n, nPos, p == nullptr); }
    afx_msg LRESULT OnApp(WPARAM wParam, LPARAM lParam) { return Trace(L"app", wParam, lParam); }
    afx_msg void OnClicked() { Trace(L"clicked"); }
    afx_msg void OnChange() { Trace(L"change"); }
    afx_msg void OnNotified(NMHDR* p, LRESULT* pResult) { *pResult = Trace(L"notified", p->idFrom) + 1; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CProbe, CProbeBase)
    ON_WM_SIZE()
    ON_WM_ACTIVATE()
    ON_WM_CTLCOLOR()
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEWHEEL()
    ON_WM_VSCROLL()
    ON_MESSAGE(WM_APP + 1, &CProbe::OnApp)
    ON_BN_CLICKED(1, &CProbe::OnClicked)
    ON_EN_CHANGE(2, &CProbe::OnChange)
    ON_COMMAND(41, &CProbe::OnBase)
    ON_NOTIFY(NM_CLICK, 2, &CProbe::OnNotified)
END_MESSAGE_MAP()

class CReflectingEdit : public CEdit {
  private:
    afx_msg void OnOwnChange() { Trace(L"own change"); }
    afx_msg void OnOwnNotification(NMHDR*, LRESULT* pResult) { *pResult = Trace(L"own notified"); }
    afx_msg void OnChar(UINT, UINT, UINT) {
        GetWindowTextLength();  // a message within the message
        CEdit::OnChar(L'z', 1, 0);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflectingEdit, CEdit)
    ON_CONTROL_REFLECT(EN_CHANGE, &CReflectingEdit::OnOwnChange)
    ON_NOTIFY_REFLECT(NM_CLICK, &CReflectingEdit::OnOwnNotification)
    ON_WM_CHAR()
END_MESSAGE_MAP()

}  // namespace

TEST(MessageMapTest, HandlersGetTheirArgumentsAndAnswer) {
    CProbe probe;
    ASSERT_TRUE(probe.CreateEx(0, L"STATIC", L"", WS_POPUP, CRect(0, 0, 90, 50), nullptr, 0));
    EXPECT_EQ(TakeTrace(), L"size 0 90 50;");
    const auto own = reinterpret_cast<LPARAM>(probe.m_hWnd);
    const auto brush = reinterpret_cast<LRESULT>(kBrush);
    const struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        LPCWSTR trace;
        LRESULT result;
    } cases[] = {
        {WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(40000, 30), L"size 2 40000 30;", 0},
        {WM_ACTIVATE, MAKEWPARAM(WA_CLICKACTIVE, 1), own, L"activate 2 1 1;", 0},
        {WM_CTLCOLORMSGBOX, 0, own, L"color 1 0;", brush},
        {WM_CTLCOLORSTATIC, 0, own, L"color 1 6;", brush},
        {WM_LBUTTONDOWN, MK_SHIFT, MAKELPARAM(-3, 4), L"down 4 -3 4;", 0},
        {WM_MOUSEWHEEL, MAKEWPARAM(8, -120), MAKELPARAM(3, -4), L"wheel 8 -120 3 -4;", 5},
        {WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 30), 0, L"scroll 5 30 1;", 0},
        {WM_APP + 1, 5, 6, L"app 5 6;", 5},
        {WM_APP + 2, 5, 6, L"", 0},
        {WM_COMMAND, MAKEWPARAM(1, BN_CLICKED), 1, L"clicked;", 0},
        {WM_COMMAND, MAKEWPARAM(1, BN_DOUBLECLICKED), 1, L"", 0},
        {WM_COMMAND, MAKEWPARAM(2, EN_CHANGE), 1, L"change;", 0},
        {WM_COMMAND, MAKEWPARAM(3, EN_CHANGE), 1, L"", 0},
        {WM_COMMAND, 40, 0, L"base;", 0},
        {WM_COMMAND, MAKEWPARAM(41, 1), 0, L"base;", 0},  // from an accelerator
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.message << " " << c.wParam);
        EXPECT_EQ(probe.SendMessage(c.message, c.wParam, c.lParam), c.result);
        EXPECT_EQ(TakeTrace(), c.trace);
    }
}

TEST(MessageMapTest, ControlIsOfferedItsOwnNotificationsFirst) {
    CProbe probe;
    CReflectingEdit edit;
    probe.CreateEx(0, L"STATIC", L"", WS_POPUP, CRect(), nullptr, 0);
    ASSERT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 50, 20), &probe, 2));
    NMHDR click{edit.m_hWnd, 2, NM_CLICK};
    const auto notify = [&] { return probe.SendMessage(WM_NOTIFY, 2, reinterpret_cast<LPARAM>(&click)); };
    TakeTrace();
    edit.SetWindowText(L"");
    EXPECT_EQ(notify(), 5);
    // A base handler passes on the message itself, not the arguments.
    edit.SendMessage(WM_CHAR, L'a', 1);
    CString text;
    EXPECT_TRUE(probe.GetDlgItemText(2, text) == 1 && text == L"a");
    EXPECT_EQ(TakeTrace(), L"own change;own notified;own change;");
    // Without an object that handles them they are the parent's.
    edit.UnsubclassWindow();
    probe.SetDlgItemText(2, L"more");
    EXPECT_EQ(notify(), 6);
    click.code = NM_RCLICK;
    EXPECT_EQ(notify(), 0);
    EXPECT_EQ(TakeTrace(), L"change;notified 2;");
}
