#include "BandFindings.h"
#include "DraftTableCheck.h"
#include "NumberText.h"
#include "RuleParameters.h"
#include "Text.h"
#include "Units.h"
#include "ValueCheck.h"

#include <array>
#include <limits>

namespace {

using Rows = std::vector<MfxTableRow>;

bool IsBelowRightAngle(double angle, const RuleUnits& units) {
    constexpr double kRightAngleDegrees = 90.0;
    return ConvertNumber(angle, Quantity::Angle, units, RuleUnits()) <= kRightAngleDegrees - kTolerance;
}

void CheckAngles(const Reporter& reporter, const Rows& rows, const RuleUnits& units) {
    constexpr double kNone = std::numeric_limits<double>::infinity();
    std::array<double, DraftCell::Count> before;  // the row's above
    before.fill(kNone);
    int rowNumber = 0;
    for (const MfxTableRow& row : rows) {
        const Reporter inRow = reporter.InRow(++rowNumber);
        bool grows = false;
        for (std::size_t cell = DraftCell::FirstAngle; cell < DraftCell::Count; ++cell) {
            const double angle = ParseDouble(row.cells[cell]);
            if (!IsBelowRightAngle(angle, units))
                inRow.AddAboutValues<FindingCode::AngleTooLarge>(
                    rowNumber, static_cast<int>(cell - DraftCell::UpperBound), ToUtf8(row.cells[cell]));
            grows = grows || angle > before[cell] + kTolerance;
            before[cell] = row.cells[cell].IsEmpty() ? kNone : angle;
        }
        if (grows) inRow.AddAboutValues<FindingCode::AngleGrows>(rowNumber);
    }
}

void AddFlaw(const Reporter& reporter, const Rows& rows, const DraftTableResult& result,
             const RuleUnits& units) {
    const auto number = [&](std::size_t cell) {
        return ParseDouble(rows[static_cast<std::size_t>(result.nRow - 1)].cells[cell]);
    };
    switch (result.flaw) {
        case DraftTableFlaw::NoBands:
            return reporter.AddAboutValues<FindingCode::NoDraftBands>();
        case DraftTableFlaw::EmptyCell:
        case DraftTableFlaw::IncompleteRow:
            return reporter.AddAboutValues<FindingCode::DraftValueMissing>(result.nRow);
        case DraftTableFlaw::UpperNotAboveLower:
            return AddInverted(reporter, result.nRow, "band", number(DraftCell::LowerBound),
                               number(DraftCell::UpperBound));
        case DraftTableFlaw::NotContiguous:
            return AddNotContiguous(reporter, {.row = result.nRow,
                                               .rowBefore = result.nRow - 1,
                                               .begin = number(DraftCell::LowerBound),
                                               .endBefore = result.expected,
                                               .noun = "sizes",
                                               .unit = UnitSymbol(Quantity::Length, units)});
        case DraftTableFlaw::None:
            break;
    }
}

}  // namespace

void CheckDraftAngles(const RuleToCheck& rule) {
    const CMfxParamStorage* table = FindParameter(rule.Rule().m_paramArray, kDraftAngleTableId);
    if (!table || !rule.IsRead(-1, {kDraftAngleTableId})) return;
    const Rows rows = RowsAsShown(table->GetValues<MfxTableRow>());
    const RuleUnits units = UnitsOf(rule.Rule());
    const Reporter reporter = rule.reporter.OfParameter(kDraftAngleTableId);
    CheckAngles(reporter, rows, units);
    const DraftTableResult result = CheckDraftTable(rows);
    AddFlaw(reporter.InRow(result.nRow), rows, result, units);
}
