#include "RuleTable.h"

#include "NumberText.h"
#include "RuleParameters.h"
#include "Text.h"
#include "TextTable.h"
#include "UnitNames.h"
#include "ValueText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

using Align = TextTable::Align;

// A limit, with the marks for "not given" and "no upper limit" in words.
std::string FormatLimit(double value, long nParamId) {
    if (IsBandParameter(nParamId) && value < -kTolerance) return "-";
    return IsBandParameter(nParamId) && IsNoUpperLimit(value) ? "no limit" : FormatNumber(value);
}

bool IsTable(const CMfxParamStorage& storage) {
    return storage.m_paramType == ParamTable && storage.GetType() == TypeTableRow;
}

std::string FormatCell(const CString& strCell) {
    if (IsNumericText(strCell) && IsNoUpperLimit(ParseDouble(strCell))) return "no limit";
    return strCell.IsEmpty() ? "-" : ToUtf8(strCell);
}

// Symbol of the unit in which the rule keeps its masses.
std::string MassUnitLabel(const CMfxRule& rule) {
    const CMfxParamStorage* pUnit = FindParameter(rule.m_paramArray, kMassUnitId);
    const bool bHasLabel = pUnit && pUnit->GetType() == TypeText && !pUnit->GetValues<CString>().IsEmpty();
    return MassUnitSymbol(bHasLabel ? ToUtf8(pUnit->GetValues<CString>()[0]) : "");
}

// Values of one parameter, separated by commas; table rows by their number, since they stand in a table of
// their own.
std::string FormatValues(const CMfxParamStorage& storage, const CMfxRule& rule) {
    if (IsTable(storage))
        return Count(static_cast<std::size_t>(storage.GetValues<MfxTableRow>().GetCount()), "row");
    const std::string unit = UnitOfParameter(storage, rule);
    const auto format = [](const auto& value) {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, double>)
            return FormatNumber(value);
        else
            return ToUtf8(ToText(value));
    };
    std::string text;
    std::visit(
        [&](const auto& values) {
            for (const auto& value : values) text += (text.empty() ? "" : ", ") + format(value);
        },
        storage.m_values);
    if (text.empty()) return "-";
    return unit.empty() ? text : text + " " + unit;
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

std::string FormatParameters(const CMfxRule& rule) {
    TextTable table({Align::Right, Align::Left, Align::Left, Align::Left});
    table.Add({"id", "parameter", "active", "value"});
    std::string bands;
    for (const MfxParamRecord& record : rule.m_paramArray) {
        const CMfxParamStorage& storage = *record.m_pStorage;
        table.Add({std::to_string(storage.m_nParamId), ToUtf8(storage.m_strName),
                   storage.m_bStatus ? "yes" : "no", FormatValues(storage, rule)});
        if (IsTable(storage)) bands += FormatBands(storage.GetValues<MfxTableRow>(), rule);
    }
    return table.Format(2) + bands;
}

// The numbers of a constraint as rows of cells: element i of each of its lists makes row i.
std::vector<std::vector<std::string>> ConstraintRows(const CMFXConstraint& constraint) {
    std::vector<std::vector<std::string>> rows(1);
    for (int nColumn = 0; nColumn < constraint.m_paramArray.GetCount(); ++nColumn) {
        const CMfxParamStorage& storage = *constraint.m_paramArray[nColumn].m_pStorage;
        const MfxArray<double>& values = storage.GetValues<double>();
        rows.resize(std::max(rows.size(), static_cast<std::size_t>(values.GetCount())));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const int nValue = static_cast<int>(i);
            rows[i].resize(static_cast<std::size_t>(nColumn), "-");
            rows[i].push_back(nValue < values.GetCount() ? FormatLimit(values[nValue], storage.m_nParamId)
                                                         : "-");
        }
    }
    return rows;
}

// All constraints of a rule in one table; the rules of the module have the same parameters in each.
std::string FormatConstraints(const CMfxRule& rule) {
    if (rule.m_constraintArray.IsEmpty()) return {};
    std::vector<std::string> header{"constraint", "active"};
    for (const MfxParamRecord& record : rule.m_constraintArray[0]->m_paramArray) {
        const std::string unit = UnitOfParameter(*record.m_pStorage, rule);
        header.push_back(ToUtf8(record.m_pStorage->m_strName) + (unit.empty() ? "" : " [" + unit + "]"));
    }
    std::vector<Align> columns(header.size(), Align::Right);
    columns[0] = columns[1] = Align::Left;
    TextTable table(columns);
    table.Add(header);
    for (const CMFXConstraint* pConstraint : rule.m_constraintArray) {
        std::vector<std::string> cells{ToUtf8(pConstraint->m_strName), pConstraint->m_bActive ? "yes" : "no"};
        for (const std::vector<std::string>& row : ConstraintRows(*pConstraint)) {
            cells.insert(cells.end(), row.begin(), row.end());
            table.Add(std::move(cells));
            cells = {"", ""};
        }
    }
    return table.Format(2);
}

}  // namespace

std::string FormatRule(const CMfxRule& rule) {
    return ToUtf8(rule.m_strDisplayName) + " (rule " + std::to_string(rule.GetRuleId()) + ")\n  " +
           ToUtf8(rule.m_strSummary) + "\n  status " + std::to_string(rule.m_nStatus) + ", severity " +
           std::to_string(rule.m_nSeverity) + "\n" + FormatParameters(rule) + FormatConstraints(rule);
}

std::string FormatNumber(double value) {
    const bool bLarge = std::fabs(value) >= 1e6 && std::fabs(value) < 1e15;
    char text[32];
    const auto format = bLarge ? std::chars_format::fixed : std::chars_format::general;
    return {text, std::to_chars(text, text + sizeof text, value, format, bLarge ? 0 : 7).ptr};
}

std::string UnitOfParameter(const CMfxParamStorage& storage, const CMfxRule& rule) {
    switch (QuantityOfParameter(storage.m_nParamId)) {
        case ParameterQuantity::Length:
            return LengthUnitSymbol(rule.m_nLengthUnit);
        case ParameterQuantity::Mass:
            return MassUnitLabel(rule);
        case ParameterQuantity::None:
            break;
    }
    return {};
}
