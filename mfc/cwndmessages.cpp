#include "messagehandler.h"

namespace {

UINT NotificationCode(const MSG& msg) {
    return msg.lParam ? HIWORD(msg.wParam) : 0;  // without a control it is a menu or an accelerator
}

const AFX_MSGMAP_ENTRY* FindEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
    for (; map; map = map->pBaseMap)
        for (const AFX_MSGMAP_ENTRY* entry = map->pEntries; entry->pfnCall; ++entry)
            if (entry->nMessage == message && entry->nCode == code && entry->nID == id) return entry;
    return nullptr;
}

}  // namespace

const AFX_MSGMAP* CWnd::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP* CWnd::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY noEntries{};
    static const AFX_MSGMAP map{nullptr, &noEntries};
    return &map;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return OnWndMsg(message, wParam, lParam, &result) ? result : DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::Default() {
    const MSG& msg = *GetCurrentMessage();
    return DefWindowProc(msg.message, msg.wParam, msg.lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    if (message == WM_COMMAND) return OnCommand(wParam, lParam);
    if (message == WM_NOTIFY) return OnNotify(wParam, lParam, pResult);
    return CallHandler({m_hWnd, message, wParam, lParam, 0, {}}, message, 0, 0, pResult);
}

BOOL CWnd::CallHandler(const MSG& msg, UINT nMapMessage, UINT nCode, UINT nID, LRESULT* pResult) {
    const AFX_MSGMAP_ENTRY* const entry = FindEntry(GetMessageMap(), nMapMessage, nCode, nID);
    if (!entry) return FALSE;
    const LRESULT result = entry->pfnCall(*this, msg);
    if (pResult) *pResult = result;
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    CWnd* const pControl = FromHandlePermanent(reinterpret_cast<HWND>(lParam));
    if (pControl && pControl->OnChildNotify(WM_COMMAND, wParam, lParam, nullptr)) return TRUE;
    const MSG msg{m_hWnd, WM_COMMAND, wParam, lParam, 0, {}};
    return CallHandler(msg, WM_COMMAND, NotificationCode(msg), LOWORD(wParam), nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    const UINT nID = static_cast<UINT>(header.idFrom);
    return CallHandler({m_hWnd, WM_NOTIFY, wParam, lParam, 0, {}}, WM_NOTIFY, header.code, nID, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    const MSG msg{m_hWnd, message, wParam, lParam, 0, {}};
    return CallHandler(msg, mfx::kReflected + message, NotificationCode(msg), 0, pResult);
}
