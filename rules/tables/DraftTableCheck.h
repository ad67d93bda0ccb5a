// The check of a table of size bands with draft angles, as its dialog holds it. Needs no windows.
#pragma once

#include "MfxArray.h"
#include "MfxTypes.h"
#include "RuleParameters.h"

#include <span>
#include <vector>

// The cells of a row: two bounds, then the angles.
namespace DraftCell {
enum Index : std::size_t { LowerBound, UpperBound, FirstAngle, SecondAngle, ThirdAngle, Count };
}

constexpr Quantity QuantityOfDraftCell(std::size_t cell) {
    return cell < DraftCell::FirstAngle ? Quantity::Length : Quantity::Angle;
}

enum class DraftTableFlaw {
    None,
    NoBands,             // no row has anything in it
    EmptyCell,           // a row has no lower bound, or not its first two angles
    IncompleteRow,       // a row is left out, a number is zero, or an upper bound before the last is missing
    UpperNotAboveLower,  // a band ends before it begins
    NotContiguous,       // a band does not begin where the one before it ends
};

struct DraftTableResult {
    DraftTableFlaw flaw = DraftTableFlaw::None;
    int nRow = 0;                                   // the first is 1; 0 for NoBands
    DraftCell::Index cell = DraftCell::LowerBound;  // the cell at fault
    double expected = 0.0;                          // NotContiguous: the lower bound that the row should have

    // Without a flaw: the bands, their texts as FormatDouble writes them, the last one's empty upper bound
    // still empty.
    std::vector<MfxTableRow> bands;
};

// The rows of a stored table as its dialog shows them: five texts each, and an empty upper bound of a last
// band without limit.
std::vector<MfxTableRow> RowsAsShown(const MfxArray<MfxTableRow>& stored);

// Checks rows of five texts. Rows without any text may only follow the bands. The upper bound of the last
// band may be empty, and so may every third angle.
DraftTableResult CheckDraftTable(std::span<const MfxTableRow> rows);
