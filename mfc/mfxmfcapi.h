#pragma once

// What mfxmfcu.dll exports. Nothing is exported without this mark.
#ifdef MFX_MFC_BUILD
#define MFX_MFC_API __declspec(dllexport)
#else
#define MFX_MFC_API __declspec(dllimport)
#endif
