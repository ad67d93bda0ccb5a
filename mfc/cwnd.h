#pragma once

#include "ccmdtarget.h"
#include "cdc.h"
#include "messagemap.h"

class CDataExchange;
class CScrollBar;

// A window's object. A permanent one was attached to its window and gets its messages if it also created or
// subclassed it; it destroys a window that it still has when it is destroyed, and forgets one that Windows
// destroys. A temporary one stands for a window that has no other; don't keep it, it is deleted when the
// message loop is idle. Objects belong to the thread that made them; functions need a window unless they say
// otherwise.
class MFX_MFC_API CWnd : public CCmdTarget {
  public:
    CWnd() = default;
    ~CWnd() override;

    // Also without a window, which is null.
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }

    // Null for a null handle. FromHandle makes a temporary object where there is no permanent one.
    static CWnd* FromHandle(HWND hWnd);
    static CWnd* FromHandlePermanent(HWND hWnd);
    static void DeleteTempMap();

    // FALSE if this object has a window or the window another permanent object. After Attach alone the
    // window's messages don't come here, nor does the news of its end.
    BOOL Attach(HWND hWnd);
    HWND Detach();

    // Also takes the window's messages; what is not handled still goes to its own procedure. Only for windows
    // of the calling thread.
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent) {
        return SubclassWindow(::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID)));
    }
    HWND UnsubclassWindow();
    virtual void PreSubclassWindow() {}  // has its handle already, and no messages yet

    // FALSE if there is no such class or the window refuses. All messages from the first on come here. The
    // first Create is for child windows.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParentWnd, UINT nID, struct CCreateContext* pContext = NULL);
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                          int x, int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu,
                          LPVOID lpParam = NULL);
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                          const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = NULL);
    virtual BOOL DestroyWindow() { return ::DestroyWindow(m_hWnd); }  // FALSE without a window

    // TRUE if the message is dealt with and must not be dispatched.
    virtual BOOL PreTranslateMessage(MSG* /*pMsg*/) { return FALSE; }

    // Handles messages until ContinueModal is FALSE; returns what EndModalLoop was given, or IDABORT when the
    // window was destroyed or the program is to end. The flags have no effect: the owner gets WM_ENTERIDLE
    // when there is nothing to do, unless the window has DS_NOIDLEMSG.
    int RunModalLoop(DWORD dwFlags = 0);
    virtual BOOL ContinueModal() { return m_bContinueModal; }
    virtual void EndModalLoop(int nResult);

    // TRUE as argument reads the controls, FALSE fills them. Always TRUE; exceptions pass through.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

    CWnd* GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_EXSTYLE)); }
    // FALSE if nothing changes. With nFlags (SWP_...) the window is told, as by SetWindowPos.
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);

    void SetWindowText(LPCTSTR lpszString) { ::SetWindowTextW(m_hWnd, lpszString); }
    void GetWindowText(CString& rString) const;
    int GetWindowTextLength() const { return ::GetWindowTextLengthW(m_hWnd); }
    void SetDlgItemText(int nID, LPCTSTR lpszString) { ::SetDlgItemTextW(m_hWnd, nID, lpszString); }
    int GetDlgItemText(int nID, CString& rString) const;
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE) {  // the font must outlive its use
        SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont ? pFont->m_hObject : nullptr), bRedraw);
    }
    CFont* GetFont() const {
        return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
    }

    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    static CWnd* GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
    BOOL EnableWindow(BOOL bEnable = TRUE) { return ::EnableWindow(m_hWnd, bEnable); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    BOOL ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }

    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE) {
        ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
    }
    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE) {
        MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top,
                   bRepaint);
    }
    BOOL SetWindowPos(const CWnd* pAfter, int x, int y, int cx, int cy, UINT nFlags) {
        return ::SetWindowPos(m_hWnd, pAfter ? pAfter->m_hWnd : nullptr, x, y, cx, cy, nFlags);
    }
    void GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }
    void GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
    void ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }
    void ScreenToClient(LPRECT lpRect) const {
        ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
    }
    void ClientToScreen(LPPOINT lpPoint) const { ::ClientToScreen(m_hWnd, lpPoint); }
    void ClientToScreen(LPRECT lpRect) const {
        ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<LPPOINT>(lpRect), 2);
    }

    void Invalidate(BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    BOOL RedrawWindow(LPCRECT lpRectUpdate = NULL, class CRgn* /*always null*/ = NULL,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE) {
        return ::RedrawWindow(m_hWnd, lpRectUpdate, nullptr, flags);
    }
    CDC* GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }  // to be released
    int ReleaseDC(CDC* pDC) { return ::ReleaseDC(m_hWnd, pDC->GetSafeHdc()); }

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::PostMessageW(m_hWnd, message, wParam, lParam);
    }
    LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::SendDlgItemMessageW(m_hWnd, nID, message, wParam, lParam);
    }
    int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = NULL, UINT nType = MB_OK);
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse,
                      void(CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD)) {
        return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
    }
    BOOL KillTimer(UINT_PTR nIDEvent) { return ::KillTimer(m_hWnd, nIDEvent); }

    HWND m_hWnd = nullptr;

  protected:
    // All messages come here. OnWndMsg looks for a handler; what has none goes to DefWindowProc, which is the
    // window's own procedure. A handler may delete this object.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // DefWindowProc for the message being handled, which is GetCurrentMessage.
    LRESULT Default();
    static const MSG* GetCurrentMessage();

    // WM_COMMAND and WM_NOTIFY: offered to the control that sent it first, then to this window's map.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // A notification that this window sent to its parent. pResult may be null.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    virtual void PostNcDestroy() {}  // after the window's end; a place to delete this object
    virtual void DoDataExchange(CDataExchange* /*pDX*/) {}

    // Handlers do what Windows does with the message being handled, whatever arguments they are given.
    afx_msg int OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
    afx_msg void OnDestroy() { Default(); }
    afx_msg void OnSize(UINT, int, int) { Default(); }
    afx_msg void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    afx_msg void OnSetFocus(CWnd*) { Default(); }
    afx_msg void OnKillFocus(CWnd*) { Default(); }
    afx_msg void OnPaint() { Default(); }
    afx_msg BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    afx_msg HBRUSH OnCtlColor(CDC*, CWnd*, UINT) { return reinterpret_cast<HBRUSH>(Default()); }
    afx_msg BOOL OnHelpInfo(HELPINFO*) { return static_cast<BOOL>(Default()); }
    afx_msg void OnTimer(UINT_PTR) { Default(); }
    afx_msg void OnHotKey(UINT, UINT, UINT) { Default(); }
    afx_msg void OnKeyDown(UINT, UINT, UINT) { Default(); }
    afx_msg void OnChar(UINT, UINT, UINT) { Default(); }
    afx_msg void OnLButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnLButtonUp(UINT, CPoint) { Default(); }
    afx_msg void OnLButtonDblClk(UINT, CPoint) { Default(); }
    afx_msg void OnNcLButtonDown(UINT, CPoint) { Default(); }
    afx_msg BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    afx_msg void OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
    afx_msg void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }

    DECLARE_MESSAGE_MAP()

  private:
    void TellOwnerOfIdleness();
    friend class CDialog;

    static LRESULT CALLBACK OnMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CallOwnProcedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    static void ForgetDestroyed(HWND hWnd);
    static BOOL OfferToControl(HWND hControl, const MSG& msg, LRESULT* pResult);
    static BOOL PreTranslate(MSG& msg, HWND hTop) noexcept;
    BOOL CallHandler(mfx::Message& msg, UINT nMapMessage, UINT nCode, UINT nID, LRESULT* pResult);

    int m_nModalResult = IDABORT;
    bool m_bContinueModal = false;
};

// Only what WM_HSCROLL and WM_VSCROLL name.
class MFX_MFC_API CScrollBar : public CWnd {};
