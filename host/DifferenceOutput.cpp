#include "DifferenceOutput.h"

#include "Console.h"
#include "JsonOutput.h"
#include "TextTable.h"

#include <algorithm>

namespace {

std::string ValueName(const Difference& difference) {
    return (difference.constraint.empty() ? "" : difference.constraint + ": ") + difference.label +
           (difference.row ? ", row " + std::to_string(difference.row) : "");
}

void PrintTable(const DiffResult& result) {
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Right, Align::Right});
    table.Add({"rule", "value", result.left, result.right});
    const auto format = [](const std::optional<RuleValue>& value) {
        return value ? FormatRuleValue(*value) : "(none)";
    };
    for (const Difference& difference : result.differences)
        table.Add(
            {difference.rule, ValueName(difference), format(difference.left), format(difference.right)});
    if (!result.differences.empty()) Print(table.Format(0));
}

Json ValueToJson(const std::optional<RuleValue>& value) {
    if (!value) return nullptr;
    if (const double* number = std::get_if<double>(&value->content)) return *number;
    return FormatRuleValue(*value);
}

// A word has no unit, but the number beside it may.
std::string UnitOf(const Difference& difference) {
    for (const std::optional<RuleValue>* value : {&difference.left, &difference.right})
        if (*value && !(*value)->unit.empty()) return (*value)->unit;
    return {};
}

Json DifferenceToJson(const Difference& difference) {
    Json json{{"rule", difference.rule},
              {"ruleId", difference.ruleId ? Json(difference.ruleId) : Json(nullptr)}};
    json["key"] = difference.key;
    json["parameter"] = difference.paramId ? Json(difference.paramId) : Json(nullptr);
    json["constraint"] = TextOrNull(difference.constraint);
    json["value"] = difference.label;
    json["row"] = difference.row ? Json(difference.row) : Json(nullptr);
    json["unit"] = TextOrNull(UnitOf(difference));
    json["left"] = ValueToJson(difference.left);
    json["right"] = ValueToJson(difference.right);
    return json;
}

void PrintAsJson(const DiffResult& result) {
    constexpr int kJsonVersion = 2;
    PrintJson({{"version", kJsonVersion},
               {"left", result.left},
               {"right", result.right},
               {"differences", ToArray(result.differences, DifferenceToJson)}});
}

}  // namespace

bool PrintDifferences(const DiffResult& result, bool isJson) {
    if (isJson)
        PrintAsJson(result);
    else
        PrintTable(result);
    return !result.differences.empty();
}
