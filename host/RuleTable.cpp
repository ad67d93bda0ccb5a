#include "RuleTable.h"

#include "RuleParameters.h"
#include "RuleValues.h"
#include "Text.h"
#include "TextTable.h"
#include "ValueText.h"

#include <algorithm>

namespace {

using Align = TextTable::Align;

bool IsTable(const CMfxParamStorage& storage) {
    return storage.m_paramType == ParamTable && storage.GetType() == TypeTableRow;
}

// A number as the document writes it.
std::string FormatCell(const MfxTableRow& row, std::size_t cell) {
    const ValueContent content = ContentOfCell(row, cell);
    return std::holds_alternative<double>(content) ? ToUtf8(row.cells[cell]) : FormatContent(content);
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

std::string Heading(const std::string& name, const std::string& unit) {
    return unit.empty() ? name : name + " [" + unit + "]";
}

std::string FormatBands(const MfxArray<MfxTableRow>& rows, const CMfxRule& rule) {
    std::vector<std::string> header;
    for (const BandColumn& column : BandColumns(rule)) header.push_back(Heading(column.name, column.unit));
    std::size_t columnCount = header.size();
    for (const MfxTableRow& row : rows) columnCount = std::max(columnCount, row.cells.size());
    TextTable table(std::vector<Align>(columnCount, Align::Right));
    table.Add(std::move(header));
    for (const MfxTableRow& row : rows) {
        std::vector<std::string> cells;
        for (std::size_t i = 0; i < row.cells.size(); ++i) cells.push_back(FormatCell(row, i));
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
    for (int column = 0; column < constraint.m_paramArray.GetCount(); ++column) {
        const CMfxParamStorage& storage = *constraint.m_paramArray[column].m_pStorage;
        const MfxArray<double>& values = storage.GetValues<double>();
        const bool isOfBand = IsBandParameter(storage.m_nParamId);
        rows.resize(std::max(rows.size(), static_cast<std::size_t>(values.GetCount())));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const int value = static_cast<int>(i);
            rows[i].resize(static_cast<std::size_t>(column), "-");
            rows[i].push_back(
                value < values.GetCount() ? FormatContent(ContentOfNumber(values[value], isOfBand)) : "-");
        }
    }
    return rows;
}

// All constraints of a rule in one table; the rules of the module have the same parameters in each.
std::string FormatConstraints(const CMfxRule& rule) {
    if (rule.m_constraintArray.IsEmpty()) return {};
    std::vector<std::string> header{"constraint", "active"};
    for (const MfxParamRecord& record : rule.m_constraintArray[0]->m_paramArray)
        header.push_back(
            Heading(ToUtf8(record.m_pStorage->m_strName), UnitOfParameter(*record.m_pStorage, rule)));
    std::vector<Align> columns(header.size(), Align::Right);
    columns[0] = columns[1] = Align::Left;
    TextTable table(columns);
    table.Add(header);
    for (const CMFXConstraint* constraint : rule.m_constraintArray) {
        std::vector<std::string> cells{ToUtf8(constraint->m_strName), constraint->m_bActive ? "yes" : "no"};
        for (const std::vector<std::string>& row : ConstraintRows(*constraint)) {
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
