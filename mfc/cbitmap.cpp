#include "cbitmap.h"

#include "afxwin.h"
#include "temporaries.h"

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName) {
    return Attach(::LoadBitmapW(AfxGetResourceHandle(), lpszResourceName));
}

CBitmap* CBitmap::FromHandle(HBITMAP hBitmap) {
    return mfx::TemporaryFor<CBitmap, &CBitmap::m_hObject>(hBitmap);
}
