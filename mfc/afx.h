#pragma once

// The real MFC needs windows.h with settings of its own.
#ifdef _WINDOWS_
#error "Include MFC's headers before windows.h, or in its place"
#endif

#include <windows.h>
#include <tchar.h>

#include "atlstr.h"
#include "mfxmfcapi.h"

namespace mfx {
struct CListPosition {};
}  // namespace mfx

// Place of an element in a list; null is no place. It stays valid until its element is removed.
using POSITION = mfx::CListPosition*;

// Base of all classes with an identity. Objects can't be copied.
class MFX_MFC_API CObject {
  public:
    virtual ~CObject();

  protected:
    CObject() = default;

  private:
    CObject(const CObject&) = delete;
    void operator=(const CObject&) = delete;
};

// MFC's own exceptions are thrown as pointers to these. This subset throws none, but code that holds back all
// exceptions meets them where it is built with the whole MFC.
class MFX_MFC_API CException : public CObject {
  public:
    // bAutoDelete: the object is on the heap.
    explicit CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}

    // Whoever catches an exception deletes it by this.
    void Delete() {
        if (m_bAutoDelete) delete this;
    }

  private:
    const BOOL m_bAutoDelete;
};
