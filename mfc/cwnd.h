#pragma once

#include "ccmdtarget.h"
#include "cdc.h"
#include "messagemap.h"

class CDataExchange;
class CScrollBar;

// The object of a window. A permanent object belongs to one window, and gets its messages if it created or
// subclassed it. The window is destroyed with the object; when Windows destroys the window, the object
// forgets it. A temporary object stands for a window without a permanent one. Don't keep it: it is deleted
// when the message loop is idle. Use an object only in the thread that made it. Its functions need a window
// unless they say otherwise.
class MFX_MFC_API CWnd : public CCmdTarget {
  public:
    CWnd() = default;
    ~CWnd() override;

    // Null without a window.
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }

    // Null for a null handle. FromHandle makes a temporary object where there is no permanent one.
    static CWnd* FromHandle(HWND hWnd);
    static CWnd* FromHandlePermanent(HWND hWnd);

    // FALSE if this object has a window already, or the window has another permanent object. Attach alone
    // brings no messages here, nor the news of the window's end.
    BOOL Attach(HWND hWnd);
    HWND Detach();

    // Attaches and takes the window's messages. Those without a handler go to the window's own procedure.
    // Only for windows of the calling thread.
    BOOL SubclassWindow(HWND hWnd);

    // FALSE if there is no such class or the window refuses. The object gets all messages, from the first on.
    // Create makes child windows.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParentWnd, UINT nID, struct CCreateContext* pContext = NULL);
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                          const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = NULL);
    virtual BOOL DestroyWindow() { return ::DestroyWindow(m_hWnd); }  // FALSE without a window

    // TRUE if the message is dealt with. It is not dispatched then.
    virtual BOOL PreTranslateMessage(MSG* /*pMsg*/) { return FALSE; }

    // Handles messages until ContinueModal is FALSE. Returns what EndModalLoop was given, or IDABORT when the
    // window was destroyed or the program is to end. When there is nothing to do the owner gets WM_ENTERIDLE,
    // unless the window has the style DS_NOIDLEMSG. The flags have no effect.
    int RunModalLoop(DWORD dwFlags = 0);
    virtual BOOL ContinueModal() { return m_bContinueModal; }
    virtual void EndModalLoop(int nResult);

    // Reads the controls (TRUE) or fills them (FALSE). Returns TRUE; exceptions pass through.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

    CWnd* GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }

    void SetWindowText(LPCTSTR lpszString) { ::SetWindowTextW(m_hWnd, lpszString); }
    void GetWindowText(CString& rString) const;
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

    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE) {
        ::MoveWindow(m_hWnd, lpRect->left, lpRect->top, lpRect->right - lpRect->left,
                     lpRect->bottom - lpRect->top, bRepaint);
    }
    void GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }
    void GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
    void ScreenToClient(LPRECT lpRect) const {
        ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
    }

    void SetRedraw(BOOL bRedraw = TRUE) { SendMessage(WM_SETREDRAW, bRedraw); }  // does not repaint
    void Invalidate(BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::PostMessageW(m_hWnd, message, wParam, lParam);
    }
    int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = NULL, UINT nType = MB_OK);

    HWND m_hWnd = nullptr;

  protected:
    // All messages come here. OnWndMsg looks for a handler. A message without one goes to DefWindowProc, the
    // window's own procedure.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // DefWindowProc for the message that is being handled.
    LRESULT Default();
    static const MSG* GetCurrentMessage();

    // WM_COMMAND. The control that sent it may take it; otherwise this window's map is searched.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    // WM_NOTIFY: a handler of the map answers by pResult.
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // A notification of this control to its parent. pResult may be null.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    virtual void DoDataExchange(CDataExchange* /*pDX*/) {}

    // Each handler does what Windows does with the message being handled. Its arguments have no effect.
    afx_msg int OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
    afx_msg void OnDestroy() { Default(); }
    afx_msg void OnSize(UINT, int, int) { Default(); }
    afx_msg void OnPaint() { Default(); }
    afx_msg void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    afx_msg void OnHotKey(UINT, UINT, UINT) { Default(); }
    afx_msg void OnKeyDown(UINT, UINT, UINT) { Default(); }
    afx_msg void OnChar(UINT, UINT, UINT) { Default(); }
    afx_msg void OnLButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnLButtonDblClk(UINT, CPoint) { Default(); }
    afx_msg void OnNcLButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }

    DECLARE_MESSAGE_MAP()

  private:
    void TellOwnerOfIdleness();
    friend class CDialog;

    static LRESULT CALLBACK OnMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CallOwnProcedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
    static void ForgetDestroyed(HWND hWnd);
    static BOOL PreTranslate(MSG& msg, HWND hTop) noexcept;
    BOOL CallHandler(const MSG& msg, UINT nMapMessage, UINT nCode, UINT nID, LRESULT* pResult);

    int m_nModalResult = IDABORT;
    bool m_bContinueModal = false;
};

// Only what WM_VSCROLL names.
class MFX_MFC_API CScrollBar : public CWnd {};
