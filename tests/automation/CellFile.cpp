#include "CellFile.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace {

_variant_t CellValue(const std::string& cell) {
    static const std::map<std::string, VARTYPE> kTypes = {
        {"boolean", VT_BOOL}, {"currency", VT_CY}, {"date", VT_DATE},
        {"error", VT_ERROR},  {"integer", VT_I4},  {"text", VT_BSTR},
    };
    if (cell.empty()) return {};
    const auto type = kTypes.find(cell.substr(0, cell.find(':')));
    const bool bNamed = type != kTypes.end();
    const std::string text = bNamed ? cell.substr(type->first.size() + 1) : cell;
    if (bNamed && type->second == VT_ERROR)
        return {MAKE_SCODE(SEVERITY_ERROR, FACILITY_CONTROL, std::stoi(text)), VT_ERROR};
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
        CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), static_cast<int>(wide.size()))));
    _variant_t value(wide.c_str());
    constexpr LCID kEnglish = 0x409;
    const HRESULT changed = VariantChangeTypeEx(&value, &value, kEnglish, VARIANT_ALPHABOOL,
                                                bNamed ? type->second : VARTYPE{VT_R8});
    if (bNamed && FAILED(changed)) throw std::invalid_argument("cell");
    return value;
}

}  // namespace

CellRows ReadCellFile(const std::wstring& path) {
    std::ifstream file{std::filesystem::path(path)};
    if (!file) throw std::runtime_error("the workbook can't be opened");
    CellRows rows;
    for (std::string line; std::getline(file, line);) {
        std::istringstream cells(line);
        rows.emplace_back();
        for (std::string cell; std::getline(cells, cell, '|');) rows.back().push_back(CellValue(cell));
    }
    return rows;
}
