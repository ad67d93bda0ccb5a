#include "cbitmap.h"

#include "temporaries.h"

CBitmap* CBitmap::FromHandle(HBITMAP hBitmap) {
    return mfx::TemporaryFor<CBitmap, &CBitmap::m_hObject>(hBitmap);
}
