#include "RuleJson.h"

#include "DocumentOutput.h"
#include "RecordNames.h"
#include "RuleParameters.h"
#include "RuleValues.h"
#include "Text.h"
#include "ValueText.h"

namespace {

Json ToJson(const ValueContent& content) {
    if (const double* number = std::get_if<double>(&content)) return *number;
    if (const std::string* word = std::get_if<std::string>(&content)) return *word;
    return nullptr;
}

Json ValueToJson(double value, bool isOfBand) {
    return ToJson(ContentOfNumber(value, isOfBand));
}
template <class T>
Json ValueToJson(const T& value, bool) {
    return ToUtf8(ToText(value));
}

Json RowToJson(const MfxTableRow& row) {
    Json cells = Json::array();
    for (std::size_t i = 0; i < row.cells.size(); ++i) cells.push_back(ToJson(ContentOfCell(row, i)));
    return cells;
}
Json ColumnToJson(const BandColumn& column) {
    return {{"key", column.key}, {"name", column.name}, {"unit", column.unit}};
}

Json ToJson(const CMfxParamStorage& storage, const CMfxRule& rule) {
    Json json{{"parameter", storage.m_nParamId},
              {"name", ToUtf8(storage.m_strName)},
              {"active", storage.m_bStatus}};
    if (storage.GetType() == TypeTableRow) {
        json["columns"] = ToArray(BandColumns(rule), ColumnToJson);
        json["rows"] = ToArray(storage.GetValues<MfxTableRow>(), RowToJson);
        return json;
    }
    const std::string unit = UnitOfParameter(storage, rule);
    const auto toJson = [&](const auto& value) {
        return ValueToJson(value, IsBandParameter(storage.m_nParamId));
    };
    json["unit"] = TextOrNull(unit);
    json["values"] =
        std::visit([&](const auto& values) { return ToArray(values, toJson); }, storage.m_values);
    return json;
}

Json ToJson(const MfxParamArray& params, const CMfxRule& rule) {
    return ToArray(params, [&](const auto& record) { return ToJson(*record.m_pStorage, rule); });
}

Json ToJson(const CMFXConstraint& constraint, const CMfxRule& rule) {
    return {{"constraint", ToUtf8(constraint.m_strName)},
            {"active", constraint.m_bActive},
            {"parameters", ToJson(constraint.m_paramArray, rule)}};
}

Json ToJson(const RuleValue& value, const std::string& ruleKey) {
    return {{"key", ruleKey + "/" + value.key},
            {"label", value.label},
            {"unit", TextOrNull(value.unit)},
            {"value", ToJson(value.content)}};
}

// What the record itself says of a rule is there also when the module does not know the rule.
Json RuleToJson(const RuleDocument::Entry& entry) {
    const CString name = entry.record->GetAttribute(kNameAttribute);
    const CMfxRule* rule = entry.rule.get();
    Json json{
        {"key", entry.key}, {"line", entry.line}, {"rule", ToUtf8(rule ? rule->m_strDisplayName : name)}};
    json["ruleId"] = rule ? Json(rule->GetRuleId()) : Json(nullptr);
    json["recognised"] = rule != nullptr;
    json["recordName"] = ToUtf8(name);
    json["module"] = ToUtf8(entry.record->GetAttribute(kModuleAttribute));
    if (!rule) return json;
    json["summary"] = ToUtf8(rule->m_strSummary);
    json["status"] = rule->m_nStatus;
    json["severity"] = rule->m_nSeverity;
    json["parameters"] = ToJson(rule->m_paramArray, *rule);
    json["constraints"] =
        ToArray(rule->m_constraintArray, [&](const auto* constraint) { return ToJson(*constraint, *rule); });
    json["values"] =
        ToArray(ListRuleValues(*rule), [&](const RuleValue& value) { return ToJson(value, entry.key); });
    return json;
}

}  // namespace

Json DocumentToJson(const std::string& file, const RuleDocument& document,
                    const std::vector<Finding>& findings) {
    constexpr int kJsonVersion = 2;
    return {{"version", kJsonVersion},
            {"file", file},
            {"units", UnitsToJson(document.GetUnits())},
            {"rules", ToArray(document.GetEntries(), RuleToJson)},
            {"findings", ToArray(findings, FindingToJson)}};
}
