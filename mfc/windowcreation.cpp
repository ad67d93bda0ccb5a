#include "windowcreation.h"

#include <utility>

#include "guarded.h"

namespace {

thread_local CWnd* t_pAwaiting = nullptr;

// Windows makes input method windows of its own in between.
bool IsInputMethodWindow(HWND hWnd) {
    return (::GetClassLongPtrW(hWnd, GCL_STYLE) & CS_IME) != 0;
}

LRESULT CALLBACK OnHook(int nCode, WPARAM wParam, LPARAM lParam) {
    const HWND hWnd = reinterpret_cast<HWND>(wParam);
    if (nCode == HCBT_CREATEWND && t_pAwaiting && !IsInputMethodWindow(hWnd)) {
        CWnd* const pWnd = std::exchange(t_pAwaiting, nullptr);
        const MSG msg{hWnd, WM_NCCREATE, 0, 0, 0, {}};
        if (!mfx::Guarded(msg, [&] { return pWnd->SubclassWindow(hWnd); })) {
            if (pWnd->m_hWnd == hWnd) pWnd->Detach();
            return 1;  // no window then
        }
    }
    return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
}

}  // namespace

HWND mfx::CreateWindowOf(CWnd& wnd, const std::function<HWND()>& create) {
    const HHOOK hHook = ::SetWindowsHookExW(WH_CBT, OnHook, nullptr, ::GetCurrentThreadId());
    t_pAwaiting = &wnd;
    const HWND hWnd = create();
    t_pAwaiting = nullptr;
    ::UnhookWindowsHookEx(hHook);
    return hWnd;
}
