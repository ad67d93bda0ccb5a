// JSON as the commands print it; docs/ has the schemas.
#pragma once

#include "Console.h"
#include "Units.h"

#include <nlohmann/json.hpp>

using Json = nlohmann::ordered_json;

template <class Range, class Convert>
Json ToArray(const Range& range, Convert toJson) {
    Json array = Json::array();
    for (const auto& element : range) array.push_back(toJson(element));
    return array;
}

inline Json TextOrNull(const std::string& text) {
    return text.empty() ? Json(nullptr) : Json(text);
}

inline Json UnitsToJson(const UnitPair& units) {
    return {{"length", LengthUnitSymbol(units.m_nLengthUnit)},
            {"angle", AngleUnitSymbol(units.m_nAngleUnit)}};
}

// Bytes that are no UTF-8 become replacement characters.
inline void PrintJson(const Json& json) {
    Print(json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
}
