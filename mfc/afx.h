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
