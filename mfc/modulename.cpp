#include "modulename.h"

std::wstring mfx::ModuleBaseName(HMODULE module) {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    // A path that does not fit is cut to the size of the buffer.
    while ((length = ::GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()))) ==
           path.size())
        path.resize(path.size() * 2);
    path.resize(length);

    path.erase(0, path.find_last_of(L"\\/") + 1);
    const size_t dot = path.rfind(L'.');
    if (dot != std::wstring::npos) path.erase(dot);
    return path;
}
