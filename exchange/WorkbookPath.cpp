#include "WorkbookPath.h"

#include <io.h>
#include <share.h>

#include <cstdio>
#include <cwchar>
#include <memory>

WorkbookFault FindPathFault(const CString& strPath) {
    if (strPath.IsEmpty()) return WorkbookFault::NotFound;
    wchar_t* pszFolder = nullptr;
    if (!GetFolderOfPath(strPath, pszFolder)) return WorkbookFault::PathWithoutFolder;
    const std::unique_ptr<wchar_t[]> folder(pszFolder);
    const FolderProbe probe = ProbeFolderWritable(folder.get());
    constexpr int kExists = 0;
    if (probe == NoFolder || (probe == FolderWritable && _waccess(strPath, kExists) != 0))
        return WorkbookFault::NotFound;
    return WorkbookFault::None;
}

bool GetFolderOfPath(LPCWSTR pszPath, wchar_t*& pszFolder) {
    pszFolder = nullptr;
    const wchar_t* pEnd = pszPath ? std::wcsrchr(pszPath, L'\\') : nullptr;
    if (!pEnd) return false;
    const auto nLength = static_cast<std::size_t>(pEnd - pszPath);
    pszFolder = new wchar_t[nLength + 1]{};
    std::wmemcpy(pszFolder, pszPath, nLength);
    return true;
}

FolderProbe ProbeFolderWritable(LPCWSTR pszFolder) {
    const DWORD dwAttributes = pszFolder ? GetFileAttributesW(pszFolder) : INVALID_FILE_ATTRIBUTES;
    if (dwAttributes == INVALID_FILE_ATTRIBUTES || !(dwAttributes & FILE_ATTRIBUTE_DIRECTORY))
        return NoFolder;
    CString strProbe;
    strProbe.Format(L"%s\\%s", pszFolder, L"MFX.log");
    std::FILE* pProbe = _wfsopen(strProbe, L"w", _SH_DENYNO);
    if (!pProbe) return FolderReadOnly;
    std::fclose(pProbe);
    DeleteFileW(strProbe);
    return FolderWritable;
}
