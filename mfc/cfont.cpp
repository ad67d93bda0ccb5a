#include "cfont.h"

#include "temporaries.h"

CFont* CFont::FromHandle(HFONT hFont) {
    return mfx::TemporaryFor<CFont, &CFont::m_hObject>(hFont);
}
