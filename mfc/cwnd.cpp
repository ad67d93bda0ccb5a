#include "cwnd.h"

#include <unordered_map>
#include <utility>

#include "afxwin.h"
#include "guarded.h"
#include "temporaries.h"
#include "windowcreation.h"

namespace {

struct WindowRecord {
    CWnd* pObject = nullptr;   // null after Detach
    WNDPROC pfnOwn = nullptr;  // the window's own procedure while it is subclassed
};

// The thread's windows that have a permanent object or are subclassed.
thread_local std::unordered_map<HWND, WindowRecord> t_windows;

WindowRecord FindRecord(HWND hWnd) {
    const auto it = t_windows.find(hWnd);
    return it != t_windows.end() ? it->second : WindowRecord();
}

thread_local const MSG* t_pCurrentMessage = nullptr;

LONG_PTR SetWindowProcedure(HWND hWnd, WNDPROC pfn) {
    return ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(pfn));
}

}  // namespace

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
    return FindRecord(hWnd).pObject;
}

BOOL CWnd::Attach(HWND hWnd) {
    if (!hWnd || m_hWnd || FromHandlePermanent(hWnd)) return FALSE;
    t_windows[hWnd].pObject = this;
    m_hWnd = hWnd;
    return TRUE;
}

HWND CWnd::Detach() {
    const HWND hWnd = std::exchange(m_hWnd, nullptr);
    const WindowRecord record = FindRecord(hWnd);
    if (record.pObject != this) return hWnd;  // a temporary object
    if (record.pfnOwn)
        t_windows[hWnd].pObject = nullptr;
    else
        t_windows.erase(hWnd);
    return hWnd;
}

BOOL CWnd::SubclassWindow(HWND hWnd) {
    // Another thread's window would look for its record in that thread's map.
    if (::GetWindowThreadProcessId(hWnd, nullptr) != ::GetCurrentThreadId() || !Attach(hWnd)) return FALSE;
    WNDPROC& pfnOwn = t_windows[hWnd].pfnOwn;
    if (!pfnOwn) pfnOwn = reinterpret_cast<WNDPROC>(SetWindowProcedure(hWnd, OnMessage));
    return TRUE;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam) {
    const HWND hParent = pParentWnd ? pParentWnd->m_hWnd : nullptr;
    const auto create = [&] {
        return ::CreateWindowExW(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                                 rect.right - rect.left, rect.bottom - rect.top, hParent,
                                 reinterpret_cast<HMENU>(UINT_PTR{nID}), AfxGetInstanceHandle(), lpParam);
    };
    return mfx::CreateWindowOf(*this, create) != nullptr;
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, CCreateContext* /*pContext*/) {
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

// The object is not used any more after WindowProc, where it may have been deleted.
LRESULT CALLBACK CWnd::OnMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const MSG msg{hWnd, message, wParam, lParam, 0, {}};
    const MSG* const pPrevious = std::exchange(t_pCurrentMessage, &msg);  // messages nest
    const LRESULT result = mfx::Guarded(msg, [&] {
        CWnd* const pWnd = FromHandlePermanent(hWnd);
        return pWnd ? pWnd->WindowProc(message, wParam, lParam)
                    : CallOwnProcedure(hWnd, message, wParam, lParam);
    });
    if (message == WM_NCDESTROY) mfx::Guarded(msg, [&] { return ForgetDestroyed(hWnd), 0; });
    t_pCurrentMessage = pPrevious;
    return result;
}

void CWnd::ForgetDestroyed(HWND hWnd) {
    CWnd* const pWnd = FromHandlePermanent(hWnd);
    t_windows.erase(hWnd);
    if (!pWnd) return;
    pWnd->m_hWnd = nullptr;
}

LRESULT CWnd::CallOwnProcedure(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) {
    WNDPROC const pfnOwn = FindRecord(hWnd).pfnOwn;
    return pfnOwn ? ::CallWindowProcW(pfnOwn, hWnd, message, wParam, lParam)
                  : ::DefWindowProcW(hWnd, message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallOwnProcedure(m_hWnd, message, wParam, lParam);
}

const MSG* CWnd::GetCurrentMessage() {
    return t_pCurrentMessage;
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate) {
    CDataExchange exchange(this, bSaveAndValidate);
    DoDataExchange(&exchange);
    return TRUE;
}

void CWnd::GetWindowText(CString& rString) const {
    const int nLength = ::GetWindowTextLengthW(m_hWnd) + 1;
    LPWSTR const buffer = rString.GetBuffer(nLength);
    rString.ReleaseBuffer(::GetWindowTextW(m_hWnd, buffer, nLength));
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType) {
    return ::MessageBoxW(m_hWnd, lpszText, lpszCaption ? lpszCaption : AfxGetAppName(), nType);
}
