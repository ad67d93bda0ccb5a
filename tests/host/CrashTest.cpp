// Crashes, as programs should not.
#include "CrashReport.h"

int wmain() {
    InstallCrashReport();
    int* volatile pNothing = nullptr;
    return *pNothing;
}
