#include "UnitNames.h"

#include "MFXUnitConvertor.h"

#include <algorithm>
#include <cctype>
#include <span>

namespace {

// Names: the symbol first, then other spellings, separated by blanks. Plurals in "s" are understood too.
struct Unit {
    int nCode;
    const char* names;
};

// Kilometre (code 10) is missing on purpose: of a document's unit, rules read one digit.
constexpr Unit kLengthUnits[] = {
    {LengthMillimetre, "mm millimetre millimeter"},
    {LengthCentimetre, "cm centimetre centimeter"},
    {LengthInch, "in inch inches \" zoll"},
    {LengthMetre, "m metre meter"},
    {LengthFoot, "ft foot feet '"},
    {LengthMicrometre, "um \u00b5m \u03bcm micrometre micrometer micron"},
    {LengthThou, "thou mil"},
    {LengthDecimetre, "dm decimetre decimeter"},
    {LengthYard, "yd yard"},
};

constexpr Unit kAngleUnits[] = {
    {AngleDegree, "deg degree \u00b0"},
    {AngleRadian, "rad radian"},
    {AngleGradian, "gon gradian grad grade"},
    {AngleArcMinute, "arcmin arcminute arc-minute '"},
};

std::string_view Symbol(const Unit& unit) {
    const std::string_view names = unit.names;
    return names.substr(0, names.find(' '));
}

bool HasName(const Unit& unit, std::string_view name) {
    for (std::string_view rest = unit.names; !rest.empty();) {
        const std::string_view candidate = rest.substr(0, rest.find(' '));
        if (name == candidate || (candidate.size() > 3 && name == std::string(candidate) + "s")) return true;
        rest.remove_prefix(std::min(candidate.size() + 1, rest.size()));
    }
    return false;
}

std::optional<int> FindUnit(std::span<const Unit> units, std::string_view name) {
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char ch) { return std::tolower(ch); });
    for (const Unit& unit : units)
        if (HasName(unit, lower)) return unit.nCode;
    return std::nullopt;
}

std::string SymbolOf(std::span<const Unit> units, int nCode) {
    for (const Unit& unit : units)
        if (unit.nCode == nCode) return std::string(Symbol(unit));
    return {};
}

std::string Symbols(std::span<const Unit> units) {
    std::string symbols;
    for (const Unit& unit : units) symbols.append(symbols.empty() ? "" : ", ").append(Symbol(unit));
    return symbols;
}

}  // namespace

std::optional<int> FindLengthUnit(std::string_view name) {
    return FindUnit(kLengthUnits, name);
}
std::optional<int> FindAngleUnit(std::string_view name) {
    return FindUnit(kAngleUnits, name);
}

std::string LengthUnitSymbol(int nLengthUnit) {
    return SymbolOf(kLengthUnits, nLengthUnit == LengthModelDefault ? LengthMillimetre : nLengthUnit);
}
std::string AngleUnitSymbol(int nAngleUnit) {
    return SymbolOf(kAngleUnits, nAngleUnit);
}

std::string LengthUnitSymbols() {
    return Symbols(kLengthUnits);
}
std::string AngleUnitSymbols() {
    return Symbols(kAngleUnits);
}
