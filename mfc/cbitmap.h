#pragma once

#include "cgdiobject.h"

class MFX_MFC_API CBitmap : public CGdiObject {
  public:
    CBitmap() = default;

    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }

    // Temporary object, valid until the message loop is idle; null for a null handle.
    static CBitmap* FromHandle(HBITMAP hBitmap);
};
