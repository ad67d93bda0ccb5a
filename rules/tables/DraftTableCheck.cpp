#include "DraftTableCheck.h"

#include "NumberText.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

using namespace DraftCell;

struct Band {
    int nRow;
    MfxTableRow texts;

    bool Has(Index cell) const { return !texts.cells[cell].IsEmpty(); }
    double Number(Index cell) const { return ParseDouble(texts.cells[cell]); }
};

bool IsEmptyRow(const MfxTableRow& row) {
    return std::all_of(row.cells.begin(), row.cells.end(),
                       [](const CString& strCell) { return strCell.IsEmpty(); });
}

MfxTableRow Normalized(const MfxTableRow& row) {
    MfxTableRow normalized = row;
    for (CString& strCell : normalized.cells)
        if (!strCell.IsEmpty()) strCell = FormatDouble(ParseDouble(strCell));
    return normalized;
}

// A cell in the row of a table; the first row is 1.
struct Place {
    int nRow;
    Index cell;
};

DraftTableResult Flaw(DraftTableFlaw flaw, const Place& place, double expected = 0.0) {
    return {flaw, place.nRow, place.cell, expected, {}};
}

// Reads the rows into bands. Stops at the first cell that a band must have and that is empty.
std::optional<Place> CollectBands(std::span<const MfxTableRow> rows, std::vector<Band>& bands) {
    int nRow = 0;
    for (const MfxTableRow& row : rows) {
        ++nRow;
        if (IsEmptyRow(row)) continue;
        Band band{nRow, row};
        band.texts.cells.resize(Count);
        for (const Index cell : {LowerBound, FirstAngle, SecondAngle})
            if (!band.Has(cell)) return Place{nRow, cell};
        band.texts = Normalized(band.texts);
        bands.push_back(band);
    }
    return std::nullopt;
}

// The first empty row before a band.
std::optional<Place> FindGap(const std::vector<Band>& bands) {
    int nExpected = 0;
    for (const Band& band : bands)
        if (band.nRow != ++nExpected) return Place{nExpected, LowerBound};
    return std::nullopt;
}

bool IsZero(double value) {
    return std::fabs(value) <= kTolerance;
}

// The first number that must not be zero and is, or is missing. Only the first band may begin at zero, and
// only the last one may have no upper bound.
std::optional<Place> FindMissingValue(const std::vector<Band>& bands) {
    for (const Band& band : bands) {
        const bool bFirst = &band == &bands.front(), bLast = &band == &bands.back();
        if (!bFirst && IsZero(band.Number(LowerBound))) return Place{band.nRow, LowerBound};
        if (!bLast && !band.Has(UpperBound)) return Place{band.nRow, UpperBound};
        for (const Index cell : {FirstAngle, SecondAngle})
            if (IsZero(band.Number(cell))) return Place{band.nRow, cell};
    }
    return std::nullopt;
}

std::optional<Place> FindInverted(const std::vector<Band>& bands) {
    for (const Band& band : bands)
        if (band.Has(UpperBound) && band.Number(UpperBound) - kTolerance < band.Number(LowerBound))
            return Place{band.nRow, UpperBound};
    return std::nullopt;
}

}  // namespace

std::vector<MfxTableRow> RowsAsShown(const MfxArray<MfxTableRow>& stored) {
    std::vector<MfxTableRow> rows(stored.begin(), stored.end());
    for (MfxTableRow& row : rows) row.cells.resize(DraftCell::Count);
    if (rows.empty()) return rows;
    CString& upperBound = rows.back().cells[DraftCell::UpperBound];
    if (IsNoUpperLimit(ParseDouble(upperBound))) upperBound.Empty();
    return rows;
}

DraftTableResult CheckDraftTable(std::span<const MfxTableRow> rows) {
    std::vector<Band> bands;
    if (const auto place = CollectBands(rows, bands)) return Flaw(DraftTableFlaw::EmptyCell, *place);
    if (bands.empty()) return Flaw(DraftTableFlaw::NoBands, {0, LowerBound});
    if (const auto place = FindGap(bands)) return Flaw(DraftTableFlaw::IncompleteRow, *place);
    if (const auto place = FindMissingValue(bands)) return Flaw(DraftTableFlaw::IncompleteRow, *place);
    if (const auto place = FindInverted(bands)) return Flaw(DraftTableFlaw::UpperNotAboveLower, *place);
    for (std::size_t i = 1; i < bands.size(); ++i) {
        const double expected = bands[i - 1].Number(UpperBound);
        if (std::fabs(bands[i].Number(LowerBound) - expected) > kTolerance)
            return Flaw(DraftTableFlaw::NotContiguous, {bands[i].nRow, LowerBound}, expected);
    }
    DraftTableResult result;
    for (const Band& band : bands) result.bands.push_back(band.texts);
    return result;
}
