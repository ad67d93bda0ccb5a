#include "GuiObjects.h"

#include <windows.h>

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
    const auto getProcess = reinterpret_cast<const char* (*)()>(
        reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb")));
    const auto* const pTable = *reinterpret_cast<const Entry* const*>(getProcess() + kTableOffset);
    int nObjects = 0;
    for (int i = 0; pTable && i < kEntries; ++i) nObjects += pTable[i].type != 0;
    return nObjects;
}

}  // namespace

GuiObjects CountGuiObjects() {
    GuiObjects objects;
    EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&objects.nWindows));
    const DWORD nCounted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    // The stock objects are always there: none at all would mean that they can't be counted.
    objects.nDrawingObjects = nCounted ? static_cast<int>(nCounted) : CountTableOfDrawingObjects();
    EXPECT_GT(objects.nDrawingObjects, 0);
    return objects;
}
