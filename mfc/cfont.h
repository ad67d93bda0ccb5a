#pragma once

#include "cgdiobject.h"

class MFX_MFC_API CFont : public CGdiObject {
  public:
    CFont() = default;

    // Temporary object, valid until the message loop is idle; null for a null handle.
    static CFont* FromHandle(HFONT hFont);
};
