// Units as people type and read them.
#pragma once

#include "MFXUnitConvertor.h"
#include "MfxRule.h"
#include "RuleParameters.h"

#include <optional>
#include <string>
#include <string_view>

// The units in which a rule keeps its values.
struct RuleUnits {
    int lengthUnit = LengthMillimetre;
    int angleUnit = AngleDegree;
    int massUnit = MassKilogram;
};

// The units of a rule's values. Kilograms when the rule names no known mass unit.
RuleUnits UnitsOf(const CMfxRule& rule);

// The code for a name or symbol ("mm", "Inch", "millimeters"), without regard to letter case; nothing for a
// unit that a rule document can't have.
std::optional<int> FindLengthUnit(std::string_view name);
std::optional<int> FindAngleUnit(std::string_view name);

// Symbol for a unit code; empty for a code that a rule document can't be in.
std::string LengthUnitSymbol(int lengthUnit);
std::string AngleUnitSymbol(int angleUnit);

// Symbol of the unit in which a quantity is kept; empty for numbers without one.
std::string UnitSymbol(Quantity quantity, const RuleUnits& units);

// The code of a unit of that quantity by its name or symbol; nothing for one that a rule document can't have.
std::optional<int> FindUnitOf(Quantity quantity, const std::string& name);

// The units that FindUnitOf knows, for the end of a message: "; its units are mm, cm". Empty for None.
std::string KnownUnits(Quantity quantity);

// Those units, but for that of the quantity.
RuleUnits WithUnit(RuleUnits units, Quantity quantity, int unit);

// A number of that quantity in other units.
double ConvertNumber(double number, Quantity quantity, const RuleUnits& from, const RuleUnits& to);

// "inches and degrees".
std::string UnitWords(const UnitPair& units);

// The symbols that FindLengthUnit and FindAngleUnit know, for help texts: "mm, cm, in".
std::string LengthUnitSymbols();
std::string AngleUnitSymbols();

// The labels of the mass units that a rule may have: "mg, g, kg".
std::string MassUnitLabels();
