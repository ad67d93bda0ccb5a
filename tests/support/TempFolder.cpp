#include "support/TempFolder.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    static int nFolders = 0;
    const std::wstring name = L"mfx-" + std::to_wstring(GetCurrentProcessId()) + L"-";
    do m_path = (fs::temp_directory_path() / (name + std::to_wstring(++nFolders))).wstring();
    while (!fs::create_directory(m_path));
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(m_path, ignored))
        SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);  // read-only files can't be removed
    fs::remove_all(m_path, ignored);
}

std::wstring TempFolder::Path(const std::wstring& name) const {
    return name.empty() ? m_path : (fs::path(m_path) / name).wstring();
}

std::wstring TempFolder::Write(const std::wstring& name, const std::string& bytes) const {
    if (!(std::ofstream(fs::path(Path(name)), std::ios::binary) << bytes << std::flush))
        throw std::runtime_error("a test's file can't be written");
    return Path(name);
}

std::string TempFolder::Read(const std::wstring& name) const {
    std::ifstream file(fs::path(Path(name)), std::ios::binary);
    if (!file) throw std::runtime_error("a test's file can't be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::wstring> TempFolder::Names() const {
    std::set<std::wstring> names;
    for (const auto& entry : fs::directory_iterator(m_path)) names.insert(entry.path().filename().wstring());
    return {names.begin(), names.end()};
}
