#pragma once

#include <afx.h>

#include <memory>
#include <type_traits>

struct LibraryDeleter {
    void operator()(HMODULE hLibrary) const { FreeLibrary(hLibrary); }
};

// A loaded library, which is freed with the pointer.
using LibraryPtr = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryDeleter>;

// Loads a library by its full path. What it needs comes from its own folder, the program's and the system's,
// never from the current folder. Null when it can't be loaded: GetLastError.
inline LibraryPtr LoadLibraryAt(const CString& path) {
    return LibraryPtr(
        LoadLibraryExW(path, nullptr, LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS));
}
