#pragma once

#include "afx.h"

// Owner of a GDI object: it is deleted with this object, unless it is detached before.
class MFX_MFC_API CGdiObject : public CObject {
  public:
    CGdiObject() = default;
    ~CGdiObject() override;

    BOOL Attach(HGDIOBJ hObject);  // FALSE for a null handle or if there is one already
    HGDIOBJ Detach();
    BOOL DeleteObject();

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    int GetObject(int nCount, LPVOID lpObject) const { return ::GetObjectW(m_hObject, nCount, lpObject); }

    HGDIOBJ m_hObject = nullptr;
};
