#include "TableExport.h"

#include "CastSizeAndWeightBand.h"
#include "CsvText.h"
#include "DraftSheet.h"
#include "EditError.h"
#include "TableColumns.h"
#include "Text.h"

#include <algorithm>
#include <set>

namespace {

std::vector<std::string> HeadingsOf(std::span<const TableColumn> columns, const RuleUnits& units) {
    std::vector<std::string> headings;
    for (const TableColumn& column : columns) {
        const std::string unit = UnitSymbol(column.quantity, units);
        headings.push_back(column.heading + (unit.empty() ? "" : " [" + unit + "]"));
    }
    return headings;
}

// "-" where nothing is given.
ValueContent Marked(const ValueContent& content) {
    return std::holds_alternative<std::monostate>(content) ? ValueContent("-") : content;
}

ValueContent NumberOf(const CMfxParamStorage* parameter) {
    const std::optional<double> number = FirstNumber(parameter);
    return number ? ContentOfNumber(*number, false) : ValueContent("-");
}

std::vector<ValueContent> StartOfLine(const CMFXConstraint& constraint) {
    return {ToUtf8(constraint.m_strName), constraint.m_bActive ? "yes" : "no"};
}

void AddMaterials(const CMfxRule& rule, ExportedTable& table) {
    table.headings = HeadingsOf(kMaterialsColumns, UnitsOf(rule));
    for (const CMFXConstraint* material : rule.m_constraintArray) {
        table.lines.push_back(StartOfLine(*material));
        for (const long paramId : {kThicknessMinId, kThicknessMaxId})
            table.lines.back().push_back(NumberOf(material->FindParameterInArray(paramId)));
    }
}

// A group without bands has a line without numbers.
void AddGroups(const CMfxRule& rule, ExportedTable& table) {
    table.headings = HeadingsOf(kGroupsColumns, UnitsOf(rule));
    for (const CMFXConstraint* group : rule.m_constraintArray) {
        std::vector<CastSizeAndWeightBand> bands = ReadBands(*group);
        if (bands.empty()) bands.emplace_back();
        for (const CastSizeAndWeightBand& band : bands) {
            table.lines.push_back(StartOfLine(*group));
            for (const auto value : kBandValues)
                table.lines.back().push_back(Marked(ContentOfNumber(band.*value, true)));
        }
    }
}

void AddVariation(const CMfxRule& rule, ExportedTable& table) {
    table.headings = HeadingsOf(kVariationColumns, UnitsOf(rule));
    table.lines.push_back({NumberOf(FindParameter(rule.m_paramArray, kVariationId))});
}

// A last band without upper limit has an empty upper bound, as in the rule's dialog.
void AddDraftBands(const CMfxRule& rule, ExportedTable& table) {
    table.headings.assign(std::begin(kDraftSheetHeadings), std::end(kDraftSheetHeadings));
    const CMfxParamStorage* parameter = FindParameter(rule.m_paramArray, kDraftAngleTableId);
    if (!parameter) return;
    for (MfxTableRow row : parameter->GetValues<MfxTableRow>()) {
        row.cells.resize(DraftCell::Count);
        std::vector<ValueContent>& line = table.lines.emplace_back();
        for (std::size_t cell = 0; cell < DraftCell::Count; ++cell) line.push_back(ContentOfCell(row, cell));
    }
    if (table.lines.empty()) return;
    ValueContent& last = table.lines.back()[DraftCell::UpperBound];
    if (last == ValueContent("no limit")) last = std::monostate();
}

// The first cell names the constraint, and in a workbook an empty one ends the table.
void RefuseUnreadable(const CMfxRule& rule, const ExportedTable& table) {
    const std::string name = ToUtf8(rule.m_strDisplayName);
    for (std::size_t i = 0; i < table.lines.size(); ++i)
        if (FormatCsvCell(table.lines[i][0]).empty())
            throw EditError(name + ": line " + std::to_string(i + 1) + " of its table has nothing under " +
                            table.headings[0] + "; a table can't be read back so");
    std::set<CString> names;
    for (const CMFXConstraint* constraint : rule.m_constraintArray)
        if (!names.insert(constraint->m_strName).second)
            throw EditError(name + ": two constraints have the name " + Quoted(constraint->m_strName) +
                            "; a table can't tell them apart");
}

}  // namespace

ExportedTable ExportTable(const CMfxRule& rule) {
    ExportedTable table{std::to_string(rule.GetRuleId()), {}, {}};
    switch (rule.GetRuleId()) {
        case kUniformThicknessRuleId:
            AddMaterials(rule, table);
            break;
        case kSizeAndWeightRuleId:
            AddGroups(rule, table);
            break;
        case kVariationRuleId:
            AddVariation(rule, table);
            break;
        default:
            AddDraftBands(rule, table);
            break;
    }
    RefuseUnreadable(rule, table);
    return table;
}

std::string FormatCsvCell(const ValueContent& content) {
    if (const double* number = std::get_if<double>(&content)) return FormatExact(*number);
    const std::string* text = std::get_if<std::string>(&content);
    return text ? CsvField(*text) : "";
}

std::string FormatCsv(const ExportedTable& table) {
    std::string csv;
    const auto add = [&](const auto& cells, auto format) {
        for (std::size_t i = 0; i < cells.size(); ++i) csv += (i ? "," : "") + format(cells[i]);
        csv += "\r\n";
    };
    add(table.headings, [](const std::string& heading) { return CsvField(heading); });
    for (const auto& line : table.lines) add(line, FormatCsvCell);
    return csv;
}
