#pragma once

#include "cgdiobject.h"

class MFX_MFC_API CBitmap : public CGdiObject {
  public:
    CBitmap() = default;

    // From AfxGetResourceHandle(); FALSE if it is not there.
    BOOL LoadBitmap(LPCTSTR lpszResourceName);
    BOOL LoadBitmap(UINT nIDResource) { return LoadBitmap(MAKEINTRESOURCEW(nIDResource)); }

    int GetBitmap(BITMAP* pBitMap) { return GetObject(sizeof *pBitMap, pBitMap); }
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }

    // Temporary object, valid until the message loop is idle; null for a null handle.
    static CBitmap* FromHandle(HBITMAP hBitmap);
};
