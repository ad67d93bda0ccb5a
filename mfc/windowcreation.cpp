#include "windowcreation.h"

#include <utility>

#include "guarded.h"

namespace {

thread_local CWnd* t_pAwaiting = nullptr;

// Windows makes input method windows of its own in between.
bool IsInputMethodWindow(HWND hWnd) {
    return (::GetClassLongPtrW(hWnd, GCL_STYLE) & CS_IME) != 0;
}

}  // namespace

mfx::CWindowCreation::CWindowCreation(CWnd& wnd)
    : m_hHook(::SetWindowsHookExW(WH_CBT, OnHook, nullptr, ::GetCurrentThreadId())) {
    t_pAwaiting = &wnd;
}

mfx::CWindowCreation::~CWindowCreation() {
    t_pAwaiting = nullptr;
    ::UnhookWindowsHookEx(m_hHook);
}

LRESULT CALLBACK mfx::CWindowCreation::OnHook(int nCode, WPARAM wParam, LPARAM lParam) {
    const HWND hWnd = reinterpret_cast<HWND>(wParam);
    if (nCode == HCBT_CREATEWND && t_pAwaiting && !IsInputMethodWindow(hWnd)) {
        CWnd* const pWnd = std::exchange(t_pAwaiting, nullptr);
        const MSG msg{hWnd, WM_NCCREATE, 0, 0, 0, {}};
        if (!Guarded(msg, [&] { return pWnd->SubclassWindow(hWnd); })) return 1;  // no window then
    }
    return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
}
