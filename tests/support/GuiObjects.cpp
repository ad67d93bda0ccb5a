#include "GuiObjects.h"

#include <windows.h>
#include <winternl.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace {

BOOL CALLBACK CountWindow(HWND, LPARAM pCount) {
    ++*reinterpret_cast<int*>(pCount);
    return TRUE;
}

// Wine does not count drawing objects, but has the table of them where Windows has it.
int CountTableOfDrawingObjects() {
    struct Entry {
        void* pObject;
        std::uint16_t processId, lock, unique;
        std::uint8_t type, flags;
        void* pUserData;
    };
    constexpr int kEntries = 16'384;
    constexpr int kTableOffset = 0xF8;
    const auto* const pProcess = reinterpret_cast<const char*>(NtCurrentTeb()->ProcessEnvironmentBlock);
    const auto* const pTable = *reinterpret_cast<const Entry* const*>(pProcess + kTableOffset);
    int nObjects = 0;
    for (int i = 0; pTable && i < kEntries; ++i) nObjects += pTable[i].type != 0;
    return nObjects;
}

}  // namespace

GuiObjects CountGuiObjects() {
    GuiObjects objects;
    EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&objects.nWindows));
    objects.nDrawingObjects = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
    if (objects.nDrawingObjects == 0) objects.nDrawingObjects = CountTableOfDrawingObjects();
    EXPECT_GT(objects.nDrawingObjects, 0) << "not even the stock objects were counted";
    return objects;
}
