#pragma once

#include <windows.h>

#include "mfxmfcapi.h"

class CWinApp;

namespace mfx {

// The living application objects. They are chained through themselves, so that they can come and go while
// global objects are made and destroyed, in any order. No lock: they do so under the loader's lock or on the
// user-interface thread.
class MFX_MFC_API CApplications {
  public:
    static void Add(CWinApp* app) noexcept;
    static void Remove(CWinApp* app) noexcept;
    // The newest object that lies in the given module; null if there is none.
    static CWinApp* Find(HMODULE module) noexcept;

  private:
    static CWinApp* s_pFirst;
};

}  // namespace mfx
