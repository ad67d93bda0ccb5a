#pragma once

#include "cgdiobject.h"

class CDC;

class MFX_MFC_API CFont : public CGdiObject {
  public:
    CFont() = default;

    // A size in tenths of a point, for a device (null: the screen). FALSE if there is a font already.
    BOOL CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = NULL);

    // Temporary object, valid until the message loop is idle; null for a null handle.
    static CFont* FromHandle(HFONT hFont);
};
