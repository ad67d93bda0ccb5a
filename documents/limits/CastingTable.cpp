#include "CastingTable.h"

#include "CsvText.h"
#include "DraftTableCheck.h"
#include "EditError.h"
#include "TableLayout.h"
#include "Text.h"

namespace {

namespace CastingColumn {
enum Index : std::size_t { Name, Material, Group, Size, Weight };
}
constexpr TableColumn kCastingColumns[] = {{"name"},
                                           {"material"},
                                           {"group"},
                                           {"size", Quantity::Length, ValueKind::Number},
                                           {"weight", Quantity::Mass, ValueKind::Number}};

// A column that a rule adds.
struct LimitColumn {
    int ruleId;
    long paramId;
    std::size_t cell;  // of a table
    const char* heading;
    Quantity quantity;
};
constexpr LimitColumn kLimitColumns[] = {
    {kUniformThicknessRuleId, kThicknessMinId, 0, "minimum", Quantity::Length},
    {kUniformThicknessRuleId, kThicknessMaxId, 0, "maximum", Quantity::Length},
    {kSizeAndWeightRuleId, kThicknessId, 0, "minimum", Quantity::Length},
    {kVariationRuleId, kVariationId, 0, "largest variation", Quantity::None},
    {kDraftAngleRuleId, kDraftAngleTableId, DraftCell::FirstAngle, "angle 1", Quantity::Angle},
    {kDraftAngleRuleId, kDraftAngleTableId, DraftCell::SecondAngle, "angle 2", Quantity::Angle},
    {kDraftAngleRuleId, kDraftAngleTableId, DraftCell::ThirdAngle, "angle 3", Quantity::Angle},
};

class CastingWriter {
  public:
    CastingWriter(const CastingLimits& limits, const TableTexts& castings)
        : m_limits(limits),
          m_castings(castings),
          m_layout(castings, kCastingColumns, limits.GetUnits(), TableLayout::Columns::Some) {}

    CastingTable Write() {
        m_table.csv = FieldsOf(m_castings.headings) + Headings() + ",problem\r\n";
        for (const TableTexts::Line& line : m_castings.lines) WriteLine(line);
        m_table.castingCount = m_castings.lines.size();
        return std::move(m_table);
    }

  private:
    static std::string FieldsOf(const TableTexts::Line& line) {
        std::string fields;
        for (std::size_t i = 0; i < line.cells.size(); ++i)
            fields += (i ? "," : "") + CsvField(line.cells[i]);
        return fields;
    }

    std::string Headings() const {
        std::string headings;
        for (const RuleDocument::Entry& entry : m_limits.GetDocument().GetEntries())
            for (const LimitColumn& column : kLimitColumns) {
                if (!entry.rule || entry.rule->GetRuleId() != column.ruleId) continue;
                const std::string unit = UnitSymbol(column.quantity, UnitsOf(*entry.rule));
                headings += "," + entry.key + " " + column.heading + (unit.empty() ? "" : " [" + unit + "]");
            }
        return headings;
    }

    // Empty when nothing is given there.
    std::optional<double> NumberOf(const TableTexts::Line& line, std::size_t column) const {
        if (WithoutBlanks(m_layout.TextOf(line, column)).empty()) return std::nullopt;
        return StoredNumber(m_layout.ValueOf(line, column));
    }

    Casting CastingOf(const TableTexts::Line& line) const {
        const auto name = [&](std::size_t column) {
            return std::string(WithoutBlanks(m_layout.TextOf(line, column)));
        };
        return {name(CastingColumn::Material), name(CastingColumn::Group),
                NumberOf(line, CastingColumn::Size), NumberOf(line, CastingColumn::Weight)};
    }

    void WriteLine(const TableTexts::Line& line) {
        std::string fields, problem;
        try {
            for (const RuleLimits& found : m_limits.Find(CastingOf(line))) AddRule(found, fields, problem);
        } catch (const EditError& error) {
            problem = error.what();
            for (const RuleLimits& found : m_limits.Find({})) AddCells(found, {}, fields);
        }
        m_table.problemCount += !problem.empty();
        m_table.csv += FieldsOf(line) + fields + "," + CsvField(problem) + "\r\n";
    }

    static void AddRule(const RuleLimits& found, std::string& fields, std::string& problem) {
        AddCells(found, found.limits, fields);
        const bool isAnswered =
            found.reason.answer == LimitAnswer::Found || found.reason.answer == LimitAnswer::NotInForce;
        if (!isAnswered) problem += (problem.empty() ? "" : "; ") + found.entry->key + ": " + found.text;
    }

    static void AddCells(const RuleLimits& found, const std::vector<RuleValue>& limits, std::string& fields) {
        for (const LimitColumn& column : kLimitColumns) {
            if (found.entry->rule->GetRuleId() != column.ruleId) continue;
            fields += ",";
            for (const RuleValue& limit : limits)
                if (limit.location.paramId == column.paramId && limit.cell == column.cell)
                    fields += FormatExact(StoredNumber(limit.content));
        }
    }

    const CastingLimits& m_limits;
    const TableTexts& m_castings;
    const TableLayout m_layout;
    CastingTable m_table;
};

}  // namespace

CastingTable AnswerCastings(const CastingLimits& limits, const TableTexts& castings) {
    return CastingWriter(limits, castings).Write();
}
