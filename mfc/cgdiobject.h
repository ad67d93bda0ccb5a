#pragma once

#include <utility>

#include "afx.h"

// Owner of a GDI object: it is deleted with this object, unless it is detached before.
class MFX_MFC_API CGdiObject : public CObject {
  public:
    CGdiObject() = default;
    ~CGdiObject() override { DeleteObject(); }

    // FALSE for a null handle, or if there is an object already.
    BOOL Attach(HGDIOBJ hObject) { return hObject && !m_hObject && (m_hObject = hObject); }
    HGDIOBJ Detach() { return std::exchange(m_hObject, nullptr); }
    BOOL DeleteObject() { return m_hObject && ::DeleteObject(Detach()); }

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    int GetObject(int nCount, LPVOID lpObject) const { return ::GetObjectW(m_hObject, nCount, lpObject); }

    HGDIOBJ m_hObject = nullptr;
};
