#include "Units.h"

#include "MassUnits.h"
#include "Text.h"

#include <algorithm>
#include <cctype>
#include <span>

namespace {

// Names: the symbol first, then other spellings, separated by blanks. Plurals in "s" are understood too.
struct Unit {
    int code;
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
        if (HasName(unit, lower)) return unit.code;
    return std::nullopt;
}

const Unit* FindCode(std::span<const Unit> units, int code) {
    const auto found =
        std::find_if(units.begin(), units.end(), [=](const Unit& unit) { return unit.code == code; });
    return found != units.end() ? &*found : nullptr;
}

const Unit* FindLengthCode(int code) {
    return FindCode(kLengthUnits, code == LengthModelDefault ? LengthMillimetre : code);
}

std::string Symbols(std::span<const Unit> units) {
    std::string symbols;
    for (const Unit& unit : units) symbols.append(symbols.empty() ? "" : ", ").append(Symbol(unit));
    return symbols;
}

}  // namespace

RuleUnits UnitsOf(const CMfxRule& rule) {
    RuleUnits units{rule.m_nLengthUnit, rule.m_nAngleUnit};
    const CMfxParamStorage* label = FindParameter(rule.m_paramArray, kMassUnitId);
    if (!label || label->GetType() != TypeText || label->GetValues<CString>().IsEmpty()) return units;
    if (const int massUnit = FindMassUnit(label->GetValues<CString>()[0])) units.massUnit = massUnit;
    return units;
}

std::optional<int> FindLengthUnit(std::string_view name) {
    return FindUnit(kLengthUnits, name);
}
std::optional<int> FindAngleUnit(std::string_view name) {
    return FindUnit(kAngleUnits, name);
}

std::string LengthUnitSymbol(int lengthUnit) {
    const Unit* unit = FindLengthCode(lengthUnit);
    return unit ? std::string(Symbol(*unit)) : std::string();
}

std::string AngleUnitSymbol(int angleUnit) {
    const Unit* unit = FindCode(kAngleUnits, angleUnit);
    return unit ? std::string(Symbol(*unit)) : std::string();
}

std::string UnitWords(const UnitPair& units) {
    const Unit* length = FindLengthCode(units.m_nLengthUnit);
    const Unit* angle = FindCode(kAngleUnits, units.m_nAngleUnit);
    return std::string(length ? length->words : "?") + " and " + (angle ? angle->words : "?");
}

std::string UnitSymbol(Quantity quantity, const RuleUnits& units) {
    switch (quantity) {
        case Quantity::Length:
            return LengthUnitSymbol(units.lengthUnit);
        case Quantity::Angle:
            return AngleUnitSymbol(units.angleUnit);
        case Quantity::Mass:
            return ToUtf8(GetMassUnitLabel(units.massUnit));
        case Quantity::None:
            break;
    }
    return {};
}

double ConvertNumber(double number, Quantity quantity, const RuleUnits& from, const RuleUnits& to) {
    const CMFXUnitConvertor convertor;
    switch (quantity) {
        case Quantity::Length:
            return convertor.ConversionFromOneUnitToAnother(number, QuantityLength, from.lengthUnit,
                                                            to.lengthUnit);
        case Quantity::Angle:
            return convertor.ConversionFromOneUnitToAnother(number, QuantityAngle, from.angleUnit,
                                                            to.angleUnit);
        case Quantity::Mass:
            return convertor.ConversionFromOneUnitToAnotherForMass(number, from.massUnit, to.massUnit);
        case Quantity::None:
            break;
    }
    return number;
}

std::string LengthUnitSymbols() {
    return Symbols(kLengthUnits);
}
std::string AngleUnitSymbols() {
    return Symbols(kAngleUnits);
}

std::string MassUnitLabels() {
    std::string labels;
    for (const wchar_t* label : kMassUnitLabels) labels += (labels.empty() ? "" : ", ") + ToUtf8(label);
    return labels;
}
