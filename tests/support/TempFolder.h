#pragma once

#include <string>
#include <vector>

// A fresh, empty folder that goes away with the object, and all that is in it. Names are relative to it.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // Full path of a name; without one that of the folder.
    std::wstring Path(const std::wstring& name = L"") const;
    // The whole file at once. Throw std::runtime_error; Write returns the full path.
    std::wstring Write(const std::wstring& name, const std::string& bytes) const;
    std::string Read(const std::wstring& name) const;
    // Sorted.
    std::vector<std::wstring> Names() const;

  private:
    std::wstring m_path;
};
