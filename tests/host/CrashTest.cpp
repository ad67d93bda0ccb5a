// Crashes, as programs should not.
#include "CrashReport.h"

#include <cstdint>

int wmain() {
    InstallCrashReport();
    const volatile std::uintptr_t address = 8;  // the hardened build finds a null pointer by itself
    return *reinterpret_cast<const int*>(address);
}
