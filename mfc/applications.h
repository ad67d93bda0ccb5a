#pragma once

#include "afx.h"

class CWinApp;

namespace mfx {

// The living application objects. Each points to the next, so that they can come and go in any order while
// global objects are made and destroyed. There is no lock: that happens under the loader's lock or on the
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
