#include "cfont.h"

#include "cdc.h"
#include "temporaries.h"

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC) {
    const HDC hScreen = pDC ? nullptr : ::GetDC(nullptr);
    constexpr int kTenthsPerInch = 720;
    const int nHeight =
        ::MulDiv(nPointSize, ::GetDeviceCaps(pDC ? HDC{*pDC} : hScreen, LOGPIXELSY), kTenthsPerInch);
    if (hScreen) ::ReleaseDC(nullptr, hScreen);
    return Attach(::CreateFontW(-nHeight, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH,
                                lpszFaceName));
}

CFont* CFont::FromHandle(HFONT hFont) {
    return mfx::TemporaryFor<CFont, &CFont::m_hObject>(hFont);
}
