#include "TableImport.h"

#include "BandTableTexts.h"
#include "DraftSheetTexts.h"
#include "MaterialLimitsTexts.h"
#include "ModuleText.h"
#include "NumberText.h"
#include "TableLayout.h"
#include "Text.h"
#include "ValueKey.h"
#include "resource.h"

#include <map>

namespace {

using Line = TableTexts::Line;
using Constraints = std::map<CString, const CMFXConstraint*>;

Constraints ConstraintsByName(const CMfxRule& rule) {
    Constraints constraints;
    for (const CMFXConstraint* constraint : rule.m_constraintArray)
        constraints.emplace(constraint->m_strName, constraint);
    return constraints;
}

// A name of the rule's as it is there, a new one without blanks around it.
CString RequireName(const TableLayout& layout, const Line& line, std::size_t column,
                    const Constraints& before) {
    const std::string& text = layout.TextOf(line, column);
    const std::string name(WithoutBlanks(text));
    if (name.empty()) layout.Refuse(line, column, "there is no name");
    if (before.contains(FromUtf8(text))) return FromUtf8(text);
    if (HasControlCharacter(name)) layout.Refuse(line, column, "a name has no control characters");
    return FromUtf8(name);
}

bool IsYes(const TableLayout& layout, const Line& line, std::size_t column) {
    return layout.ValueOf(line, column) == ValueContent("yes");
}

// The texts name the line of the file in place of the row of a dialog.
void RefuseFlawed(const TableTexts& table, const TableLayout& layout, const std::vector<MaterialRow>& rows) {
    std::vector<MaterialLimitTexts> texts;
    for (const MaterialRow& row : rows)
        texts.push_back({row.name, FormatDouble(row.minimum), FormatDouble(row.maximum)});
    MaterialLimitsResult result = CheckMaterialLimits(texts);
    if (result.flaw == MaterialLimitsFlaw::None) return;
    const Line& line = table.lines[static_cast<std::size_t>(result.nRow) - 1];
    constexpr MaterialsColumn::Index kColumns[] = {MaterialsColumn::Material, MaterialsColumn::Minimum,
                                                   MaterialsColumn::Maximum};
    result.nRow = line.number;
    layout.Refuse(line, kColumns[result.column], ToUtf8(MaterialFlawText(result)));
}

std::vector<MaterialRow> ReadMaterials(const TableTexts& table, const CMfxRule& rule) {
    const TableLayout layout(table, kMaterialsColumns, UnitsOf(rule), TableLayout::Columns::All);
    const Constraints before = ConstraintsByName(rule);
    std::vector<MaterialRow> rows;
    for (const Line& line : table.lines) {
        const CString name = RequireName(layout, line, MaterialsColumn::Material, before);
        const auto known = before.find(name);
        const auto limit = [&](std::size_t column, long paramId) {
            const double number = StoredNumber(layout.ValueOf(line, column));
            if (known == before.end()) return number;
            return layout.WithKeptDigits(
                number, column, FirstNumber(known->second->FindParameterInArray(paramId)).value_or(0.0));
        };
        rows.push_back({name, IsYes(layout, line, MaterialsColumn::Active),
                        limit(MaterialsColumn::Minimum, kThicknessMinId),
                        limit(MaterialsColumn::Maximum, kThicknessMaxId)});
    }
    RefuseFlawed(table, layout, rows);
    return rows;
}

// Collects the groups of a table, whose lines need not stand together.
class GroupReader {
  public:
    GroupReader(const TableTexts& table, const CMfxRule& rule)
        : m_table(table),
          m_layout(table, kGroupsColumns, UnitsOf(rule), TableLayout::Columns::All),
          m_rule(rule),
          m_before(ConstraintsByName(rule)) {}

    std::vector<GroupRows> Read() {
        for (const Line& line : m_table.lines) ReadLine(line);
        for (std::size_t group = 0; group < m_groups.size(); ++group) RefuseFlawed(group);
        return std::move(m_groups);
    }

  private:
    using Bands = std::vector<CastSizeAndWeightBand>;

    void ReadLine(const Line& line) {
        const CString name = RequireName(m_layout, line, GroupsColumn::Group, m_before);
        const bool isActive = IsYes(m_layout, line, GroupsColumn::Active);
        const auto [place, isNew] = m_places.emplace(name, m_groups.size());
        if (isNew) {
            m_groups.push_back({name, isActive});
            const auto known = m_before.find(name);
            m_bandsBefore.push_back(known != m_before.end() ? ReadBands(*known->second) : Bands());
            m_lines.push_back({&line});
        }
        GroupRows& group = m_groups[place->second];
        if (group.isActive != isActive)
            m_layout.Refuse(line, GroupsColumn::Active,
                            std::string("the first line of the group says ") + (isActive ? "no" : "yes"));
        const CastSizeAndWeightBand band = ReadBand(line, place->second);
        if (IsBlank(band)) return;
        group.bands.push_back(band);
        m_lines[place->second].push_back(&line);
    }

    CastSizeAndWeightBand ReadBand(const Line& line, std::size_t group) const {
        const std::size_t row = m_groups[group].bands.size();
        CastSizeAndWeightBand band;
        for (std::size_t cell = 0; cell < BandCell::Count; ++cell) {
            const std::size_t column = GroupsColumn::FirstOfBand + cell;
            const ValueContent content = m_layout.ValueOf(line, column);
            if (std::holds_alternative<std::string>(content) && cell != BandCell::SizeMax)
                m_layout.Refuse(line, column, "only an upper size may have no limit");
            double& number = band.*kBandValues[cell];
            number = StoredNumber(content);
            if (row < m_bandsBefore[group].size() && IsGiven(number))
                number =
                    m_layout.WithKeptDigits(number, column, m_bandsBefore[group][row].*kBandValues[cell]);
        }
        return band;
    }

    // What the rule's dialog would refuse. The texts name the line of the file in place of the row.
    void RefuseFlawed(std::size_t group) const {
        SizeAndWeightResult result = CheckSizeAndWeightBands(NumberBands(m_groups[group].bands));
        if (result.flaw == SizeAndWeightFlaw::None) return;
        // The first of the lines is that of the group itself.
        const Line& line = *m_lines[group][static_cast<std::size_t>(result.nRow)];
        result.nRow = line.number;
        const RuleUnits units = UnitsOf(m_rule);
        m_layout.Refuse(line, GroupsColumn::FirstOfBand + std::size_t{result.cell},
                        ToUtf8(m_groups[group].name + L": " +
                               BandFlawText(result, FromUtf8(UnitSymbol(Quantity::Length, units)),
                                            FromUtf8(UnitSymbol(Quantity::Mass, units)))));
    }

    const TableTexts& m_table;
    const TableLayout m_layout;
    const CMfxRule& m_rule;
    const Constraints m_before;
    std::map<CString, std::size_t> m_places;
    std::vector<GroupRows> m_groups;
    // Of each group: the bands that it had in the rule, its first line, and the lines of its bands.
    std::vector<Bands> m_bandsBefore;
    std::vector<std::vector<const Line*>> m_lines;
};

double ReadVariation(const TableTexts& table) {
    const TableLayout layout(table, kVariationColumns, {}, TableLayout::Columns::All);
    if (table.lines.size() != 1)
        RefuseLine(table, table.lines.empty() ? table.headings.number : table.lines[1].number,
                   "the table has one value, below its heading");
    const double variation = StoredNumber(layout.ValueOf(table.lines[0], 0));
    if (variation == 0.0) layout.Refuse(table.lines[0], 0, ToUtf8(LoadModuleText(IDS_VALUE_IS_ZERO)));
    return variation;
}

// Bands by the rules of the dialog, which counts the rows of a sheet.
std::vector<MfxTableRow> ReadDraftBands(const TableTexts& table) {
    DraftSheet sheet = ReadDraftSheet(ColumnsOf(table));
    if (sheet.fault == DraftSheetFault::None) return sheet.table.bands;
    const auto lineOfRow = [&](int row) { return table.lines[static_cast<std::size_t>(row) - 2].number; };
    if (sheet.table.nRow > 1) sheet.table.nRow = lineOfRow(sheet.table.nRow);
    if (const int row = _wtoi(sheet.strCell.Mid(1)))
        sheet.strCell = FromUtf8(CellName(lineOfRow(row), static_cast<std::size_t>(sheet.strCell[0] - L'A')));
    throw EditError(table.file + ": " + ToUtf8(DraftSheetFaultText(sheet)));
}

}  // namespace

WorkbookColumns SheetColumnsOf(int ruleId) {
    if (ruleId == kDraftAngleRuleId) return kDraftSheetColumns;
    const std::size_t count = ruleId == kUniformThicknessRuleId ? std::size(kMaterialsColumns)
                              : ruleId == kSizeAndWeightRuleId  ? std::size(kGroupsColumns)
                                                                : std::size(kVariationColumns);
    WorkbookColumns columns;
    for (std::size_t column = 0; column <= count; ++column)
        columns.emplace_back(1, static_cast<wchar_t>(L'A' + column));
    return columns;
}

void ImportTable(DocumentEdit& edit, const std::string& ruleKey, const TableTexts& table) {
    const CMfxRule& rule = edit.GetRule(ruleKey);
    switch (rule.GetRuleId()) {
        case kUniformThicknessRuleId:
            return edit.SetMaterials(ruleKey, ReadMaterials(table, rule));
        case kSizeAndWeightRuleId:
            return edit.SetGroups(ruleKey, GroupReader(table, rule).Read());
        case kVariationRuleId:
            return edit.Set(ruleKey + "/" + std::to_string(kVariationId), FormatExact(ReadVariation(table)));
        default:
            return edit.SetDraftBands(ruleKey, ReadDraftBands(table));
    }
}
