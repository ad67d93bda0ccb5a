// What a start costs at least: loads the system's libraries that every program with dialogs needs, and ends.

#include <windows.h>
#include <commctrl.h>
#include <objbase.h>

int wmain() {
    InitCommonControls();
    CoUninitialize();
    return GetSystemMetrics(SM_CXSCREEN) > 0 ? 0 : 1;
}
