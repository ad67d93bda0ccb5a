#include "RuleTable.h"

#include "NumberText.h"
#include "Text.h"
#include "TextTable.h"
#include "UnitNames.h"
#include "ValueText.h"

namespace {

using Align = TextTable::Align;

// Values of one parameter, separated by commas; table rows by their number, since they stand in a table of
// their own.
std::string FormatValues(const CMfxParamStorage& storage) {
    if (storage.m_paramType == ParamTable && storage.GetType() == TypeTableRow)
        return Count(static_cast<std::size_t>(storage.GetValues<MfxTableRow>().GetCount()), "row");
    std::string text;
    std::visit(
        [&](const auto& values) {
            for (const auto& value : values) text += (text.empty() ? "" : ", ") + ToUtf8(ToText(value));
        },
        storage.m_values);
    return text.empty() ? "-" : text;
}

std::string FormatCell(const CString& strCell) {
    if (IsNumericText(strCell) && IsNoUpperLimit(ParseDouble(strCell))) return "no limit";
    return strCell.IsEmpty() ? "-" : ToUtf8(strCell);
}

// The rows of a size-band table: two lengths, then angles.
std::string FormatBands(const MfxArray<MfxTableRow>& rows, const CMfxRule& rule) {
    const std::string length = " [" + LengthUnitSymbol(rule.m_nLengthUnit) + "]";
    const std::string angle = " [" + AngleUnitSymbol(rule.m_nAngleUnit) + "]";
    std::size_t nColumns = 5;
    for (const MfxTableRow& row : rows) nColumns = std::max(nColumns, row.cells.size());
    TextTable table(std::vector<Align>(nColumns, Align::Right));
    table.Add({"from" + length, "to" + length, "angle 1" + angle, "angle 2" + angle, "angle 3" + angle});
    for (const MfxTableRow& row : rows) {
        std::vector<std::string> cells;
        for (const CString& strCell : row.cells) cells.push_back(FormatCell(strCell));
        table.Add(std::move(cells));
    }
    return table.Format(4);
}

std::string FormatParameters(const MfxParamArray& params, const CMfxRule& rule, int nIndent) {
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    table.Add({"id", "parameter", "active", "value"});
    std::string bands;
    for (const MfxParamRecord& record : params) {
        const CMfxParamStorage& storage = *record.m_pStorage;
        table.Add({std::to_string(storage.m_nParamId), ToUtf8(storage.m_strName),
                   storage.m_bStatus ? "yes" : "no", FormatValues(storage)});
        if (storage.m_paramType == ParamTable && storage.GetType() == TypeTableRow)
            bands += FormatBands(storage.GetValues<MfxTableRow>(), rule);
    }
    return table.Format(nIndent) + bands;
}

}  // namespace

std::string FormatRule(const CMfxRule& rule) {
    std::string text = ToUtf8(rule.m_strDisplayName) + " (rule " + std::to_string(rule.GetRuleId()) +
                       ")\n  " + ToUtf8(rule.m_strSummary) + "\n  status " + std::to_string(rule.m_nStatus) +
                       ", severity " + std::to_string(rule.m_nSeverity) + "\n" +
                       FormatParameters(rule.m_paramArray, rule, 2);
    for (const CMFXConstraint* pConstraint : rule.m_constraintArray)
        text += "  constraint \"" + ToUtf8(pConstraint->m_strName) + "\"" +
                (pConstraint->m_bActive ? ", active\n" : "\n") +
                FormatParameters(pConstraint->m_paramArray, rule, 4);
    return text;
}
