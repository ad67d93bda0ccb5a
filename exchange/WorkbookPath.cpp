#include "WorkbookPath.h"

#include <io.h>
#include <share.h>

#include <cstdio>
#include <cwchar>
#include <memory>

WorkbookFault FindPathFault(const CString& path) {
    if (path.IsEmpty()) return WorkbookFault::NotFound;
    wchar_t* folder = nullptr;
    if (!GetFolderOfPath(path, folder)) return WorkbookFault::PathWithoutFolder;
    const std::unique_ptr<wchar_t[]> owner(folder);
    const FolderProbe probe = ProbeFolderWritable(folder);
    constexpr int kExists = 0;
    if (probe == NoFolder || (probe == FolderWritable && _waccess(path, kExists) != 0))
        return WorkbookFault::NotFound;
    return WorkbookFault::None;
}

bool GetFolderOfPath(LPCWSTR path, wchar_t*& folder) {
    folder = nullptr;
    const wchar_t* end = path ? std::wcsrchr(path, L'\\') : nullptr;
    if (!end) return false;
    const auto length = static_cast<std::size_t>(end - path);
    folder = new wchar_t[length + 1]{};
    std::wmemcpy(folder, path, length);
    return true;
}

FolderProbe ProbeFolderWritable(LPCWSTR folder) {
    const DWORD attributes = folder ? GetFileAttributesW(folder) : INVALID_FILE_ATTRIBUTES;
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY)) return NoFolder;
    CString probe;
    probe.Format(L"%s\\%s", folder, L"MFX.log");
    std::FILE* file = _wfsopen(probe, L"w", _SH_DENYNO);
    if (!file) return FolderReadOnly;
    std::fclose(file);
    DeleteFileW(probe);
    return FolderWritable;
}
