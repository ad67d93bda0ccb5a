// What dialogs do with their controls.
#pragma once

#include "PictureControl.h"

#include <algorithm>
#include <initializer_list>

// Whether the template has all of the controls.
inline bool HaveWindows(std::initializer_list<const CWnd*> controls) {
    return std::ranges::all_of(controls, [](const CWnd* pControl) { return pControl->GetSafeHwnd(); });
}

// Shows a bitmap of the module's resource library.
inline void ShowPicture(PictureControl& picture, UINT nBitmapId) {
    picture.SetBitmap(LoadBitmapW(AfxGetResourceHandle(), MAKEINTRESOURCEW(nBitmapId)));
}
