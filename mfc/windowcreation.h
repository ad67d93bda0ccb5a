#pragma once

#include "cwnd.h"

namespace mfx {

// While it lives, the next window that the thread creates becomes that of the given object, before the window
// gets its first message.
class CWindowCreation {
  public:
    explicit CWindowCreation(CWnd& wnd);
    ~CWindowCreation();
    CWindowCreation(const CWindowCreation&) = delete;
    CWindowCreation& operator=(const CWindowCreation&) = delete;

  private:
    static LRESULT CALLBACK OnHook(int nCode, WPARAM wParam, LPARAM lParam);

    HHOOK m_hHook;
};

}  // namespace mfx
