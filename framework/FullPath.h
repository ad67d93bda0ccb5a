// Paths from the drive or the server on. std::filesystem of MinGW-w64 makes "C:\server" of "\\server".
#pragma once

#include <afx.h>

#include <string>

inline CString FullPath(const CString& path) {
    std::wstring full(GetFullPathNameW(path, 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path, static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.c_str();
}

// Whether it names the same file in every current folder.
inline bool IsFullPath(const CString& path) {
    CString root = path.Left(3);
    root.Replace(L"/", L"\\");
    return FullPath(path).Left(3).CompareNoCase(root) == 0;
}
