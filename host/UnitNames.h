// Units as people type and read them.
#pragma once

#include "MfxTypes.h"

#include <optional>
#include <string>
#include <string_view>

// The code for a name or symbol ("mm", "Inch", "millimeters"), without regard to letter case; nothing for a
// name that is none of the units that a rule document can be in.
std::optional<int> FindLengthUnit(std::string_view name);
std::optional<int> FindAngleUnit(std::string_view name);

// Symbol for a unit code; empty for a code that a rule document can't be in.
std::string LengthUnitSymbol(int nLengthUnit);
std::string AngleUnitSymbol(int nAngleUnit);

// The mass unit that a rule takes a stored label for: kg for a label that is none.
std::string MassUnitSymbol(const std::string& label);

// The code of a mass unit's symbol, 0 for a text that is none.
int FindMassUnit(const std::string& symbol);

// "inches and degrees".
std::string UnitWords(const UnitPair& units);

// The symbols that FindLengthUnit and FindAngleUnit know, for help texts: "mm, cm, in".
std::string LengthUnitSymbols();
std::string AngleUnitSymbols();
