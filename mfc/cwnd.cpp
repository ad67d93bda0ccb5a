#include "cwnd.h"

#include <utility>

#include "afxwin.h"
#include "temporaries.h"
#include "windowcreation.h"
#include "windowmap.h"

CWnd::~CWnd() {
    if (!m_hWnd) return;
    CWnd::DestroyWindow();
    Detach();  // a window that was only attached gives no notice of its end
}

CWnd* CWnd::FromHandle(HWND hWnd) {
    CWnd* const pWnd = FromHandlePermanent(hWnd);
    return pWnd ? pWnd : mfx::TemporaryFor<CWnd, &CWnd::m_hWnd>(hWnd);
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd) {
    const auto it = mfx::WindowMap().find(hWnd);
    return it != mfx::WindowMap().end() ? it->second.pObject : nullptr;
}

void CWnd::DeleteTempMap() {
    std::erase_if(mfx::Temporaries(), [](const auto& object) { return dynamic_cast<CWnd*>(object.get()); });
}

BOOL CWnd::Attach(HWND hWnd) {
    if (!hWnd || m_hWnd || FromHandlePermanent(hWnd)) return FALSE;
    mfx::WindowMap()[hWnd].pObject = this;
    m_hWnd = hWnd;
    return TRUE;
}

HWND CWnd::Detach() {
    const HWND hWnd = std::exchange(m_hWnd, nullptr);
    const auto it = mfx::WindowMap().find(hWnd);
    if (it != mfx::WindowMap().end() && it->second.pObject == this) {
        it->second.pObject = nullptr;
        if (!it->second.pfnOwn) mfx::WindowMap().erase(it);
    }
    return hWnd;
}

BOOL CWnd::SubclassWindow(HWND hWnd) {
    // Another thread's window would look for its record in that thread's map.
    if (::GetWindowThreadProcessId(hWnd, nullptr) != ::GetCurrentThreadId() || !Attach(hWnd)) return FALSE;
    PreSubclassWindow();
    WNDPROC& pfnOwn = mfx::WindowMap()[hWnd].pfnOwn;
    if (!pfnOwn) {
        const LONG_PTR previous =
            ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OnMessage));
        pfnOwn = reinterpret_cast<WNDPROC>(previous);
    }
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent) {
    return SubclassWindow(::GetDlgItem(pParent->GetSafeHwnd(), static_cast<int>(nID)));
}

HWND CWnd::UnsubclassWindow() {
    const auto it = mfx::WindowMap().find(m_hWnd);
    if (it != mfx::WindowMap().end() && it->second.pfnOwn)
        ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC,
                            reinterpret_cast<LONG_PTR>(std::exchange(it->second.pfnOwn, nullptr)));
    return Detach();
}

void CWnd::PreSubclassWindow() {}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, CCreateContext* /*pContext*/) {
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam) {
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top, pParentWnd ? pParentWnd->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(UINT_PTR{nID}), lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x,
                    int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam) {
    const mfx::CWindowCreation creation(*this);
    return ::CreateWindowExW(dwExStyle, lpszClassName, lpszWindowName, dwStyle, x, y, nWidth, nHeight,
                             hWndParent, nIDorHMenu, AfxGetInstanceHandle(), lpParam) != nullptr;
}

BOOL CWnd::DestroyWindow() {
    return ::DestroyWindow(m_hWnd);
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate) {
    CDataExchange exchange(this, bSaveAndValidate);
    DoDataExchange(&exchange);
    return TRUE;
}

void CWnd::DoDataExchange(CDataExchange* /*pDX*/) {}

void CWnd::PostNcDestroy() {}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
    const DWORD dwStyle = (GetStyle() & ~dwRemove) | dwAdd;
    if (dwStyle == GetStyle()) return FALSE;
    ::SetWindowLongW(m_hWnd, GWL_STYLE, static_cast<LONG>(dwStyle));
    if (nFlags)
        SetWindowPos(nullptr, 0, 0, 0, 0, nFlags | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return TRUE;
}

void CWnd::GetWindowText(CString& rString) const {
    const int nLength = GetWindowTextLength();
    LPWSTR const buffer = rString.GetBuffer(nLength + 1);
    rString.ReleaseBuffer(::GetWindowTextW(m_hWnd, buffer, nLength + 1));
}

int CWnd::GetDlgItemText(int nID, CString& rString) const {
    rString.Empty();
    if (const CWnd* const pControl = GetDlgItem(nID)) pControl->GetWindowText(rString);
    return rString.GetLength();
}

void CWnd::SetFont(CFont* pFont, BOOL bRedraw) {
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont ? pFont->GetSafeHandle() : nullptr), bRedraw);
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint) {
    MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top,
               bRepaint);
}

BOOL CWnd::SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags) {
    return ::SetWindowPos(m_hWnd, pWndInsertAfter ? pWndInsertAfter->m_hWnd : nullptr, x, y, cx, cy, nFlags);
}

BOOL CWnd::RedrawWindow(LPCRECT lpRectUpdate, CRgn* /*prgnUpdate*/, UINT flags) {
    return ::RedrawWindow(m_hWnd, lpRectUpdate, nullptr, flags);
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType) {
    return ::MessageBoxW(m_hWnd, lpszText, lpszCaption ? lpszCaption : AfxGetAppName(), nType);
}
