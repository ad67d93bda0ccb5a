#include "cfont.h"

#include "temporaries.h"

CFont* CFont::FromHandle(HFONT hFont) {
    return mfx::CTemporaries::Get<CFont, &CFont::m_hObject>(hFont);
}
