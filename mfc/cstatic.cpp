#include "cstatic.h"

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CWnd::Create(L"STATIC", lpszText, dwStyle, rect, pParentWnd, nID);
}

HBITMAP CStatic::SetBitmap(HBITMAP hBitmap) {
    return reinterpret_cast<HBITMAP>(
        SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
}

HBITMAP CStatic::GetBitmap() const {
    return reinterpret_cast<HBITMAP>(::SendMessageW(m_hWnd, STM_GETIMAGE, IMAGE_BITMAP, 0));
}
