// Where a program or library was loaded from. Inline, since a program asks before it has loaded this library.
#pragma once

#include <afx.h>

#include <string>

// Full path of a loaded library, of the program itself for null. It may be longer than MAX_PATH.
inline CString GetModulePath(HMODULE hModule) {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(hModule, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) return CString(path.c_str(), static_cast<int>(length));
        path.resize(path.size() * 2);  // the path was cut off
    }
}

// Its folder, without a backslash at the end.
inline CString GetModuleFolder(HMODULE hModule) {
    const CString path = GetModulePath(hModule);
    return path.Left(path.ReverseFind(L'\\'));
}

// The library or program that holds the address of a variable or function.
inline HMODULE GetModuleOfAddress(const void* address) {
    HMODULE hModule = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<LPCWSTR>(address), &hModule);
    return hModule;
}
