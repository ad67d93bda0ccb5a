#include "UnitNames.h"

#include "MFXUnitConvertor.h"

#include <algorithm>
#include <cctype>
#include <span>

namespace {

// Names: the symbol first, then other spellings, separated by blanks. Plurals in "s" are understood too.
struct Unit {
    int nCode;
    const char* words;  // as it is read in a sentence
    const char* names;
};

// Kilometre (code 10) is missing on purpose: of a document's unit, rules read one digit.
constexpr Unit kLengthUnits[] = {
    {LengthMillimetre, "millimetres", "mm millimetre millimeter"},
    {LengthCentimetre, "centimetres", "cm centimetre centimeter"},
    {LengthInch, "inches", "in inch inches \""},
    {LengthMetre, "metres", "m metre meter"},
    {LengthFoot, "feet", "ft foot feet '"},
    {LengthMicrometre, "micrometres", "um \u00b5m \u03bcm micrometre micrometer micron"},
    {LengthThou, "thou", "thou mil"},
    {LengthDecimetre, "decimetres", "dm decimetre decimeter"},
    {LengthYard, "yards", "yd yard"},
};

constexpr Unit kAngleUnits[] = {
    {AngleDegree, "degrees", "deg degree \u00b0"},
    {AngleRadian, "radians", "rad radian"},
    {AngleGradian, "gradians", "gon gradian grad grade"},
    {AngleArcMinute, "arcminutes", "arcmin arcminute arc-minute ' \u2032"},
};

std::string_view Symbol(const Unit& unit) {
    const std::string_view names = unit.names;
    return names.substr(0, names.find(' '));
}

bool HasName(const Unit& unit, std::string_view name) {
    for (std::string_view rest = unit.names; !rest.empty();) {
        const std::string_view candidate = rest.substr(0, rest.find(' '));
        if (name == candidate || (candidate.size() >= 3 && name == std::string(candidate) + "s")) return true;
        rest.remove_prefix(std::min(candidate.size() + 1, rest.size()));
    }
    return false;
}

std::optional<int> FindUnit(std::span<const Unit> units, std::string_view name) {
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char ch) { return static_cast<char>(std::tolower(ch)); });
    for (const Unit& unit : units)
        if (HasName(unit, lower)) return unit.nCode;
    return std::nullopt;
}

const Unit* FindCode(std::span<const Unit> units, int nCode) {
    const auto found =
        std::find_if(units.begin(), units.end(), [=](const Unit& unit) { return unit.nCode == nCode; });
    return found != units.end() ? &*found : nullptr;
}

const Unit* FindLengthCode(int nCode) {
    return FindCode(kLengthUnits, nCode == LengthModelDefault ? LengthMillimetre : nCode);
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
    const Unit* pUnit = FindLengthCode(nLengthUnit);
    return pUnit ? std::string(Symbol(*pUnit)) : std::string();
}

std::string AngleUnitSymbol(int nAngleUnit) {
    const Unit* pUnit = FindCode(kAngleUnits, nAngleUnit);
    return pUnit ? std::string(Symbol(*pUnit)) : std::string();
}

std::string UnitWords(const UnitPair& units) {
    const Unit* pLength = FindLengthCode(units.m_nLengthUnit);
    const Unit* pAngle = FindCode(kAngleUnits, units.m_nAngleUnit);
    return std::string(pLength ? pLength->words : "?") + " and " + (pAngle ? pAngle->words : "?");
}

int FindMassUnit(const std::string& symbol) {
    constexpr std::string_view kSymbols[] = {"mg", "g", "kg", "t", "lb"};  // from MassMilligram on
    const auto found = std::find(std::begin(kSymbols), std::end(kSymbols), symbol);
    return found != std::end(kSymbols) ? static_cast<int>(found - std::begin(kSymbols)) + MassMilligram : 0;
}

std::string MassUnitSymbol(const std::string& label) {
    return FindMassUnit(label) ? label : "kg";
}

std::string LengthUnitSymbols() {
    return Symbols(kLengthUnits);
}
std::string AngleUnitSymbols() {
    return Symbols(kAngleUnits);
}
