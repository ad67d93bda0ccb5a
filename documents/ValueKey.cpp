#include "ValueKey.h"

#include <algorithm>
#include <charconv>
#include <cctype>
#include <sstream>

namespace {

constexpr std::string_view kNoName = "%";
constexpr std::string_view kBandTable = "/band";

// Whether it could be taken for a value of the rule's own.
bool IsAmbiguous(std::string_view name) {
    return name == "status" || name == "severity" || name == kByMaterialKey ||
           std::ranges::all_of(name, [](unsigned char ch) { return std::isdigit(ch); });
}

bool IsControl(char ch) {
    return static_cast<unsigned char>(ch) < 0x20 || ch == 0x7F;
}

std::string Escaped(char ch) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    const auto code = static_cast<unsigned char>(ch);
    return {'%', kDigits[code >> 4], kDigits[code & 15]};
}

}  // namespace

bool HasControlCharacter(std::string_view name) {
    return std::ranges::any_of(name, IsControl);
}

std::string KeyOfName(std::string_view name) {
    if (name.empty()) return std::string(kNoName);
    std::string key;
    for (const char ch : name) {
        const bool isFirst = key.empty() && IsAmbiguous(name);
        key += IsControl(ch) || isFirst || std::string_view("/#%=").find(ch) != std::string_view::npos
                   ? Escaped(ch)
                   : std::string(1, ch);
    }
    return key;
}

std::string NameOfKey(std::string_view key) {
    std::string name;
    key = key.substr(0, key.find('#'));
    while (!key.empty()) {
        unsigned code = 0;
        const bool isEscape = key.size() >= 3 && key[0] == '%' &&
                              std::from_chars(key.data() + 1, key.data() + 3, code, 16).ptr == key.data() + 3;
        if (isEscape || key != kNoName) name += isEscape ? static_cast<char>(code) : key[0];
        key.remove_prefix(isEscape ? 3 : 1);
    }
    return name;
}

std::string RuleOfKey(const std::string& key) {
    return key.substr(0, key.find('/'));
}

std::vector<std::string> KeyParts(const std::string& key) {
    std::vector<std::string> parts;
    std::istringstream stream(key);
    for (std::string part; std::getline(stream, part, '/');) parts.push_back(part);
    return parts;
}

bool IsConstraintKey(std::string_view part) {
    return !IsAmbiguous(part);
}

std::string RowKey(const std::string& table, int row) {
    return table + "/" + std::to_string(row);
}

std::string CellKey(const std::string& table, int row, const std::string& column) {
    const std::string constraint = ConstraintOfTable(table);
    return constraint.empty() ? RowKey(table, row) + "/" + column : RowKey(constraint + "/" + column, row);
}

std::string ColumnOfKey(const std::string& table, const std::string& key) {
    const std::vector<std::string> parts = KeyParts(key);
    const std::size_t fromEnd = ConstraintOfTable(table).empty() ? 1 : 2;
    return parts.size() >= fromEnd ? parts[parts.size() - fromEnd] : "";
}

std::string ConstraintOfTable(const std::string& table) {
    return table.ends_with(kBandTable) ? table.substr(0, table.size() - kBandTable.size()) : "";
}
