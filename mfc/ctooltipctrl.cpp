#include "ctooltipctrl.h"

#include <vector>

namespace {

// The whole window is told apart by its handle, a rectangle by its id.
TTTOOLINFOW ToolOf(CWnd* pWnd, UINT_PTR nIDTool) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = nIDTool ? pWnd->GetSafeHwnd() : ::GetParent(pWnd->GetSafeHwnd());
    tool.uFlags = nIDTool ? 0 : TTF_IDISHWND;
    tool.uId = nIDTool ? nIDTool : reinterpret_cast<UINT_PTR>(pWnd->GetSafeHwnd());
    return tool;
}

}  // namespace

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool) {
    TTTOOLINFOW tool = ToolOf(pWnd, nIDTool);
    tool.lpszText = const_cast<LPWSTR>(lpszText);
    if (lpRectTool) tool.rect = *lpRectTool;
    return SendMessage(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
}

void CToolTipCtrl::UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool) {
    TTTOOLINFOW tool = ToolOf(pWnd, nIDTool);
    tool.lpszText = const_cast<LPWSTR>(lpszText);
    SendMessage(TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void CToolTipCtrl::GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool) const {
    constexpr std::size_t kLongestText = 1024;
    std::vector<wchar_t> text(kLongestText);
    TTTOOLINFOW tool = ToolOf(pWnd, nIDTool);
    tool.lpszText = text.data();
    ::SendMessageW(m_hWnd, TTM_GETTEXTW, kLongestText, reinterpret_cast<LPARAM>(&tool));
    str = text.data();
}

void CToolTipCtrl::RelayEvent(LPMSG lpMsg) {
    SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(lpMsg));
}
