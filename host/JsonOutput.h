// JSON as the commands print it; docs/ has the schemas.
#pragma once

#include "Console.h"
#include "JsonValues.h"
#include "Units.h"

inline Json UnitsToJson(const UnitPair& units) {
    return {{"length", LengthUnitSymbol(units.m_nLengthUnit)},
            {"angle", AngleUnitSymbol(units.m_nAngleUnit)}};
}

// Bytes that are no UTF-8 become replacement characters.
inline void PrintJson(const Json& json) {
    Print(json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
}
