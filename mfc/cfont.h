#pragma once

#include "cgdiobject.h"

class MFX_MFC_API CFont : public CGdiObject {
  public:
    CFont() = default;

    BOOL CreateFontIndirect(const LOGFONT* lpLogFont) { return Attach(::CreateFontIndirectW(lpLogFont)); }
    int GetLogFont(LOGFONT* pLogFont) { return GetObject(sizeof *pLogFont, pLogFont); }
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }

    // Temporary object, valid until the message loop is idle; null for a null handle.
    static CFont* FromHandle(HFONT hFont);
};
