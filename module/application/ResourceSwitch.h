#pragma once

#include <afxwin.h>

// Makes the module's localized resource library the process's resource handle until the end of the scope. In
// between the handle is the host's, so every operation that loads resources needs such a scope.
class ResourceSwitch {
  public:
    ResourceSwitch();
    ~ResourceSwitch();
    ResourceSwitch(const ResourceSwitch&) = delete;
    ResourceSwitch& operator=(const ResourceSwitch&) = delete;

  private:
    HINSTANCE m_hPrevious;
};
