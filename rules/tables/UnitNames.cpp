#include "UnitNames.h"

#include <algorithm>
#include <cctype>

namespace {

std::string_view Symbol(const UnitName& unit) {
    const std::string_view names = unit.names;
    return names.substr(0, names.find(' '));
}

bool HasName(const UnitName& unit, std::string_view name) {
    for (std::string_view rest = unit.names; !rest.empty();) {
        const std::string_view candidate = rest.substr(0, rest.find(' '));
        if (name == candidate || (candidate.size() >= 3 && name == std::string(candidate) + "s")) return true;
        rest.remove_prefix(std::min(candidate.size() + 1, rest.size()));
    }
    return false;
}

}  // namespace

std::optional<int> FindUnit(std::span<const UnitName> units, std::string_view name) {
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char ch) { return static_cast<char>(std::tolower(ch)); });
    for (const UnitName& unit : units)
        if (HasName(unit, lower)) return unit.code;
    return std::nullopt;
}

const UnitName* FindUnitCode(std::span<const UnitName> units, int code) {
    const auto found =
        std::find_if(units.begin(), units.end(), [=](const UnitName& unit) { return unit.code == code; });
    return found != units.end() ? &*found : nullptr;
}

std::string SymbolOfUnit(std::span<const UnitName> units, int code) {
    const UnitName* unit = FindUnitCode(units, code);
    return unit ? std::string(Symbol(*unit)) : std::string();
}

std::string UnitSymbols(std::span<const UnitName> units) {
    std::string symbols;
    for (const UnitName& unit : units) symbols.append(symbols.empty() ? "" : ", ").append(Symbol(unit));
    return symbols;
}
