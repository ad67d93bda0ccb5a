#include "ProgramFolder.h"

#include <string>

CString GetProgramFolder() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD dwLength = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    while (dwLength == path.size()) {
        path.resize(path.size() * 2);
        dwLength = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    }
    return path.substr(0, path.rfind(L'\\', dwLength)).c_str();
}
