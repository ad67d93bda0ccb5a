// The names of units, as people type and read them.
#pragma once

#include "MFXUnitConvertor.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

// Names: the symbol first, then other spellings, separated by blanks. Plurals in "s" are understood too.
struct UnitName {
    int code;
    const char* words;  // as it is read in a sentence
    const char* names;
};

// Kilometre (code 10) is missing on purpose: of a document's unit, rules read one digit.
inline constexpr UnitName kLengthUnits[] = {
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

inline constexpr UnitName kAngleUnits[] = {
    {AngleDegree, "degrees", "deg degree \u00b0"},
    {AngleRadian, "radians", "rad radian"},
    {AngleGradian, "gradians", "gon gradian grad grade"},
    {AngleArcMinute, "arcminutes", "arcmin arcminute arc-minute ' \u2032"},
};

inline constexpr UnitName kDensityUnits[] = {
    {DensityKilogramPerCubicMetre, "kilograms per cubic metre", "kg/m3 kg/m\u00b3"},
    {DensityGramPerCubicCentimetre, "grams per cubic centimetre", "g/cm3 g/cm\u00b3"},
    {DensityTonnePerCubicMetre, "tonnes per cubic metre", "t/m3 t/m\u00b3"},
    {DensityPoundPerCubicInch, "pounds per cubic inch", "lb/in3 lb/in\u00b3"},
    {DensityPoundPerCubicFoot, "pounds per cubic foot", "lb/ft3 lb/ft\u00b3"},
};

// The code for a name or symbol, without regard to letter case; nothing for a name that is not in the table.
std::optional<int> FindUnit(std::span<const UnitName> units, std::string_view name);

// The table's row for a code; null when there is none.
const UnitName* FindUnitCode(std::span<const UnitName> units, int code);

// Symbol for a code; empty when there is none.
std::string SymbolOfUnit(std::span<const UnitName> units, int code);

// All symbols, for help texts: "mm, cm, in".
std::string UnitSymbols(std::span<const UnitName> units);
