#include "PatchJson.h"

#include "JsonValues.h"

namespace {

template <class Number>
Json NumberOrNull(Number number) {
    return number ? Json(number) : Json(nullptr);
}

Json ContentToJson(const RuleValue& value) {
    if (const double* number = std::get_if<double>(&value.content)) return *number;
    return FormatContent(value.content);
}

Json SideToJson(const std::optional<RuleValue>& value) {
    return value ? ContentToJson(*value) : Json(nullptr);
}

const char* NameOf(DifferenceScope scope) {
    switch (scope) {
        case DifferenceScope::Row:
            return "row";
        case DifferenceScope::Constraint:
            return "constraint";
        case DifferenceScope::Rule:
            return "rule";
        case DifferenceScope::Value:
            break;
    }
    return "value";
}

// A word has no unit, but the number beside it may.
std::string UnitOf(const Difference& difference) {
    for (const std::optional<RuleValue>* value : {&difference.left, &difference.right})
        if (*value && !(*value)->unit.empty()) return (*value)->unit;
    return {};
}

Json ValuesToJson(const Difference& difference) {
    return ToArray(difference.values, [&](const RuleValue& value) {
        return Json{{"key", RuleKeyOf(difference) + "/" + value.key},
                    {"unit", TextOrNull(value.unit)},
                    {"value", ContentToJson(value)}};
    });
}

Json DifferenceToJson(const Difference& difference) {
    const bool isOfRow = !difference.table.empty();
    const bool isAdded = difference.scope == DifferenceScope::Row && difference.right;
    Json json{{"kind", NameOf(difference.scope)},
              {"rule", difference.rule},
              {"ruleId", NumberOrNull(difference.ruleId)}};
    json["key"] = difference.key;
    json["parameter"] = NumberOrNull(difference.paramId);
    json["constraint"] = TextOrNull(difference.constraint);
    json["value"] = difference.label;
    json["table"] = isOfRow ? Json(RuleKeyOf(difference) + "/" + difference.table) : Json(nullptr);
    json["row"] = NumberOrNull(difference.row);
    json["after"] = isAdded ? Json(difference.after) : Json(nullptr);
    json["bounds"] = isOfRow ? ToArray(difference.bounds, ContentToJson) : Json(nullptr);
    json["unit"] = TextOrNull(UnitOf(difference));
    json["left"] = SideToJson(difference.left);
    json["right"] = SideToJson(difference.right);
    json["values"] = difference.scope == DifferenceScope::Value || !difference.ruleId
                         ? Json(nullptr)
                         : ValuesToJson(difference);
    return json;
}

Json TableToJson(const Patch::Table& table) {
    const BandRow none;
    const BandRow& first = table.rows.empty() ? none : table.rows.front();
    return {{"key", table.key},
            {"columns", ToArray(first, [](const RuleValue& value) { return value.column; })},
            {"rows", ToArray(table.rows, [](const BandRow& row) { return ToArray(row, ContentToJson); })}};
}

Json RecordToJson(const Patch::Record& record) {
    return {{"key", record.key}, {"left", TextOrNull(record.left)}, {"right", TextOrNull(record.right)}};
}

}  // namespace

// Bytes that are no UTF-8 become replacement characters.
std::string FormatPatch(const Patch& patch, const std::string& left, const std::string& right) {
    const Json json{{"version", kPatchVersion},
                    {"left", left},
                    {"right", right},
                    {"units",
                     {{"length", LengthUnitSymbol(patch.units.m_nLengthUnit)},
                      {"angle", AngleUnitSymbol(patch.units.m_nAngleUnit)}}},
                    {"differences", ToArray(patch.differences, DifferenceToJson)},
                    {"tables", ToArray(patch.tables, TableToJson)},
                    {"records", ToArray(patch.records, RecordToJson)}};
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}
