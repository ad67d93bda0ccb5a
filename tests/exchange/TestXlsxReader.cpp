// Stands in for the library that reads .xlsx workbooks: the table says what it was called with. File names
// that say "refuse" or "throw" do so.

#include "XlsxReader.h"

#include <stdexcept>

extern "C" __declspec(dllexport) ReadXlsxFunction ReadExcelAndFillTableColByCol;

bool ReadExcelAndFillTableColByCol(const std::wstring path, const WorkbookColumns& columns,
                                   WorkbookTable& table, CString& error) {
    if (path.find(L"throw") != std::wstring::npos) throw std::runtime_error("thrown");
    for (const std::wstring& letters : columns) table.push_back({path.c_str(), letters.c_str()});
    if (path.find(L"refuse") == std::wstring::npos) return true;
    error = L"from the reader";
    return false;
}
