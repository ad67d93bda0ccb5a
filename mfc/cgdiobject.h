#pragma once

#include <utility>

#include "afx.h"

// Owns a GDI object, which is deleted with this one.
class MFX_MFC_API CGdiObject : public CObject {
  public:
    CGdiObject() = default;
    ~CGdiObject() override { DeleteObject(); }

    // FALSE for a null handle, or if there is an object already.
    BOOL Attach(HGDIOBJ hObject) { return hObject && !m_hObject && (m_hObject = hObject); }
    BOOL DeleteObject() { return m_hObject && ::DeleteObject(std::exchange(m_hObject, nullptr)); }

    HGDIOBJ GetSafeHandle() const { return m_hObject; }

    HGDIOBJ m_hObject = nullptr;
};
