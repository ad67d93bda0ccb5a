// JSON in the order in which it is written.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

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
