#include "LocationHelper.h"

#include "LanguageUtil.h"

#include <string>

namespace {

// Full path of the library that this code is in; paths may be longer than MAX_PATH.
CString ThisLibraryPath() {
    static const wchar_t kInThisLibrary = 0;
    HMODULE hModule = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       &kInThisLibrary, &hModule);
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD nLength = GetModuleFileNameW(hModule, path.data(), static_cast<DWORD>(path.size()));
        if (nLength < path.size()) return CString(path.c_str(), static_cast<int>(nLength));
        path.resize(path.size() * 2);
    }
}

CString ParentFolder(const CString& strPath) {
    return strPath.Left(strPath.ReverseFind(L'\\'));
}

CString LanguageFolder(const CString& strLanguage) {
    return ParentFolder(ParentFolder(ThisLibraryPath())) + L"\\lang\\" + strLanguage;
}

}  // namespace

CString CLocationHelper::GetLocalizedResPath() {
    return LanguageFolder(CLanguageUtil::GetMfxKitLang());
}

CString CLocationHelper::GetDefaultResPath() {
    return LanguageFolder(CLanguageUtil::GetLanguageWords().front());
}
