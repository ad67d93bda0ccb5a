#include "cgdiobject.h"

#include <utility>

CGdiObject::~CGdiObject() {
    DeleteObject();
}

BOOL CGdiObject::Attach(HGDIOBJ hObject) {
    if (!hObject || m_hObject) return FALSE;
    m_hObject = hObject;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
    return std::exchange(m_hObject, nullptr);
}

BOOL CGdiObject::DeleteObject() {
    return m_hObject && ::DeleteObject(Detach());
}
