#pragma once

#include <afx.h>

#include <memory>
#include <type_traits>

struct LibraryDeleter {
    void operator()(HMODULE hLibrary) const { FreeLibrary(hLibrary); }
};

// A loaded library, which is freed with the pointer.
using LibraryPtr = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryDeleter>;
