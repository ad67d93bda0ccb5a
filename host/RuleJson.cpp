#include "RuleJson.h"

#include "RuleParameters.h"
#include "RuleValues.h"
#include "ValueText.h"

namespace {

Json ToJson(const NumberOrWord& content) {
    if (const double* pNumber = std::get_if<double>(&content)) return *pNumber;
    if (const std::string* pWord = std::get_if<std::string>(&content)) return *pWord;
    return nullptr;
}

Json ValueToJson(double value, bool bOfBand) {
    return ToJson(ContentOfNumber(value, bOfBand));
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
    return {{"name", column.name}, {"unit", column.unit}};
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

// What the record itself says of a rule is there also when the module does not know the rule.
Json RuleToJson(const RuleDocument::Entry& entry) {
    CString strName, strModule;
    entry.pRecord->GetAttributeValue(L"Name", strName);
    entry.pRecord->GetAttributeValue(L"Module", strModule);
    const CMfxRule* pRule = entry.pRule.get();
    Json json{{"line", entry.nLine}, {"rule", ToUtf8(pRule ? pRule->m_strDisplayName : strName)}};
    json["ruleId"] = pRule ? Json(pRule->GetRuleId()) : Json(nullptr);
    json["recognised"] = pRule != nullptr;
    json["recordName"] = ToUtf8(strName);
    json["module"] = ToUtf8(strModule);
    if (!pRule) return json;
    json["summary"] = ToUtf8(pRule->m_strSummary);
    json["status"] = pRule->m_nStatus;
    json["severity"] = pRule->m_nSeverity;
    json["parameters"] = ToJson(pRule->m_paramArray, *pRule);
    json["constraints"] = ToArray(pRule->m_constraintArray,
                                  [&](const auto* pConstraint) { return ToJson(*pConstraint, *pRule); });
    return json;
}

}  // namespace

Json DocumentToJson(const std::string& file, const RuleDocument& document) {
    constexpr int kJsonVersion = 1;
    return {{"version", kJsonVersion},
            {"file", file},
            {"units", UnitsToJson(document.GetUnits())},
            {"rules", ToArray(document.GetEntries(), RuleToJson)}};
}
