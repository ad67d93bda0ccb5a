#include "cwnd.h"
#include "guarded.h"
#include "temporaries.h"

// The message's window and those that it is in, up to hTop, can take the message before it is dispatched.
BOOL CWnd::PreTranslate(MSG& msg, HWND hTop) noexcept {
    const auto walk = [&]() -> BOOL {
        for (HWND hWnd = msg.hwnd; hWnd; hWnd = ::GetParent(hWnd)) {
            CWnd* const pWnd = FromHandlePermanent(hWnd);
            if (pWnd && pWnd->PreTranslateMessage(&msg)) return TRUE;
            if (hWnd == hTop) break;
        }
        return FALSE;
    };
    return mfx::Guarded(msg, walk) != 0;
}

void CWnd::TellOwnerOfIdleness() {
    const HWND hOwner = ::GetParent(m_hWnd);
    if (hOwner && !(::GetWindowLongW(m_hWnd, GWL_STYLE) & DS_NOIDLEMSG))
        ::SendMessageW(hOwner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
}

int CWnd::RunModalLoop(DWORD /*dwFlags*/) {
    m_bContinueModal = true;
    m_nModalResult = IDABORT;
    // Temporary objects made before may be in use by the handler that called.
    auto& temporaries = mfx::Temporaries();
    const size_t nOlder = temporaries.size();
    while (m_hWnd && ContinueModal()) {
        MSG msg;
        if (!::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE)) {
            if (nOlder < temporaries.size()) temporaries.resize(nOlder);
            TellOwnerOfIdleness();
            if (!m_hWnd || !ContinueModal()) break;
        }
        if (!::GetMessageW(&msg, nullptr, 0, 0)) {
            ::PostQuitMessage(static_cast<int>(msg.wParam));  // for the outer loops
            break;
        }
        if (PreTranslate(msg, m_hWnd)) continue;
        ::TranslateMessage(&msg);
        ::DispatchMessageW(&msg);
    }
    m_bContinueModal = false;
    return m_nModalResult;
}

void CWnd::EndModalLoop(int nResult) {
    m_nModalResult = nResult;
    m_bContinueModal = false;
    PostMessage(WM_NULL);  // wakes the loop
}
