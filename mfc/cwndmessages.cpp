#include "messagehandler.h"

namespace {

UINT NotificationCode(mfx::Message& msg) {
    if (msg.message == WM_NOTIFY) return mfx::LParam<NMHDR*>(msg)->code;
    return msg.lParam ? HIWORD(msg.wParam) : 0;  // without a control it is a menu or an accelerator
}

const AFX_MSGMAP_ENTRY* FindEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
    for (; map; map = map->pBaseMap)
        for (const AFX_MSGMAP_ENTRY* entry = map->pEntries; entry->pfnCall; ++entry)
            if (entry->nMessage == message && entry->nCode == code && entry->nID == id) return entry;
    return nullptr;
}

// Messages that one handler takes together.
UINT MapMessage(UINT message) {
    return message > WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC ? WM_CTLCOLORMSGBOX : message;
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
    mfx::Message msg(m_hWnd, message, wParam, lParam);
    return CallHandler(msg, MapMessage(message), 0, 0, pResult);
}

BOOL CWnd::CallHandler(mfx::Message& msg, UINT nMapMessage, UINT nCode, UINT nID, LRESULT* pResult) {
    const AFX_MSGMAP_ENTRY* const entry = FindEntry(GetMessageMap(), nMapMessage, nCode, nID);
    if (!entry) return FALSE;
    const LRESULT result = entry->pfnCall(*this, msg);
    if (pResult) *pResult = result;
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    mfx::Message msg(m_hWnd, WM_COMMAND, wParam, lParam);
    return OfferToControl(reinterpret_cast<HWND>(lParam), msg, nullptr) ||
           CallHandler(msg, WM_COMMAND, NotificationCode(msg), LOWORD(wParam), nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    mfx::Message msg(m_hWnd, WM_NOTIFY, wParam, lParam);
    const NMHDR& header = *mfx::LParam<NMHDR*>(msg);
    return OfferToControl(header.hwndFrom, msg, pResult) ||
           CallHandler(msg, WM_NOTIFY, header.code, static_cast<UINT>(header.idFrom), pResult);
}

BOOL CWnd::OfferToControl(HWND hControl, const MSG& msg, LRESULT* pResult) {
    CWnd* const pControl = FromHandlePermanent(hControl);
    return pControl && pControl->OnChildNotify(msg.message, msg.wParam, msg.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    mfx::Message msg(m_hWnd, message, wParam, lParam);
    return CallHandler(msg, mfx::kReflected + message, NotificationCode(msg), 0, pResult);
}
