#include "LimitsOutput.h"

#include "JsonOutput.h"
#include "Text.h"
#include "TextTable.h"

namespace {

const char* WordOf(LimitAnswer answer) {
    switch (answer) {
        case LimitAnswer::Found:
            return "found";
        case LimitAnswer::NotInForce:
            return "not in force";
        case LimitAnswer::Incomplete:
            return "incomplete";
        default:
            return "not found";
    }
}

std::string KeyOf(const RuleLimits& found, const RuleValue& value) {
    return found.entry->key + "/" + value.key;
}

Json NumberToJson(const std::optional<double>& number) {
    return number ? Json(*number) : Json(nullptr);
}

Json ValueToJson(const RuleLimits& found, const RuleValue& value) {
    const double* number = std::get_if<double>(&value.content);
    return {{"key", KeyOf(found, value)},
            {"label", value.label},
            {"value", number ? Json(*number) : Json(FormatContent(value.content))},
            {"unit", TextOrNull(value.unit)}};
}

Json RuleToJson(const RuleLimits& found) {
    const CMfxRule& rule = *found.entry->rule;
    const auto toJson = [&](const RuleValue& value) { return ValueToJson(found, value); };
    return {{"key", found.entry->key},
            {"ruleId", rule.GetRuleId()},
            {"name", ToUtf8(rule.m_strDisplayName)},
            {"status", rule.m_nStatus},
            {"severity", rule.m_nSeverity},
            {"answer", WordOf(found.reason.answer)},
            {"reason", found.reason.key},
            {"text", found.text},
            {"place", TextOrNull(found.place)},
            {"bounds", ToArray(found.bounds, toJson)},
            {"limits", ToArray(found.limits, toJson)}};
}

std::string FormatRuleLimits(const RuleLimits& found) {
    const CMfxRule& rule = *found.entry->rule;
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Right, Align::Left});
    for (const RuleValue& limit : found.limits)
        table.Add({limit.label, FormatRuleValue(limit), KeyOf(found, limit)});
    const bool isFound = found.reason.answer == LimitAnswer::Found;
    return ToUtf8(rule.m_strDisplayName) + " (rule " + found.entry->key + ", status " +
           std::to_string(rule.m_nStatus) + ", severity " + std::to_string(rule.m_nSeverity) + ")\n  " +
           (isFound ? "" : WordOf(found.reason.answer) + std::string(": ")) + found.text + "\n" +
           table.Format(2);
}

}  // namespace

std::string FormatLimits(const std::vector<RuleLimits>& limits) {
    std::string text;
    for (const RuleLimits& found : limits) text += (text.empty() ? "" : "\n") + FormatRuleLimits(found);
    return text;
}

void PrintLimitsAsJson(const CastingLimits& document, const Casting& casting,
                       const std::vector<RuleLimits>& limits) {
    constexpr int kJsonVersion = 1;
    const UnitPair units{document.GetUnits().lengthUnit, document.GetUnits().angleUnit};
    Json unitsJson = UnitsToJson(units);
    unitsJson["mass"] = UnitSymbol(Quantity::Mass, document.GetUnits());
    PrintJson({{"version", kJsonVersion},
               {"file", ToUtf8(document.GetDocument().GetPath())},
               {"units", unitsJson},
               {"casting",
                {{"material", TextOrNull(casting.material)},
                 {"group", TextOrNull(casting.group)},
                 {"size", NumberToJson(casting.size)},
                 {"weight", NumberToJson(casting.weight)}}},
               {"rules", ToArray(limits, RuleToJson)}});
}
