#pragma once

#include <afxwin.h>

// Makes the module's localized resource library the process's resource handle for the life of the scope. The
// handle is the host's outside the module's operations, so every operation that loads resources stands in
// such a scope.
class ResourceSwitch {
  public:
    ResourceSwitch();
    ~ResourceSwitch();
    ResourceSwitch(const ResourceSwitch&) = delete;
    ResourceSwitch& operator=(const ResourceSwitch&) = delete;

  private:
    HINSTANCE m_hPrevious;
};
