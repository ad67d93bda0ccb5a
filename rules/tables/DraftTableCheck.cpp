#include "DraftTableCheck.h"

#include "NumberText.h"

#include <algorithm>
#include <cmath>

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

DraftTableResult Flaw(DraftTableFlaw flaw, int nRow, double expected = 0.0) {
    return {flaw, nRow, expected, {}};
}

// Reads the rows into bands. Stops at the first row that lacks a value and returns its number, or 0.
int CollectBands(std::span<const MfxTableRow> rows, std::vector<Band>& bands) {
    int nRow = 0;
    for (const MfxTableRow& row : rows) {
        ++nRow;
        if (IsEmptyRow(row)) continue;
        Band band{nRow, row};
        band.texts.cells.resize(Count);
        if (!band.Has(LowerBound) || !band.Has(FirstAngle) || !band.Has(SecondAngle)) return nRow;
        band.texts = Normalized(band.texts);
        bands.push_back(band);
    }
    return 0;
}

// Number of the first empty row before a band, or 0.
int FindGap(const std::vector<Band>& bands) {
    int nExpected = 0;
    for (const Band& band : bands)
        if (band.nRow != ++nExpected) return nExpected;
    return 0;
}

bool IsZero(double value) {
    return std::fabs(value) <= kTolerance;
}

// Number of the first row that lacks a value, or 0. Only the first band may begin at zero, and only the last
// one may have no upper bound.
int FindMissingValue(const std::vector<Band>& bands) {
    for (const Band& band : bands) {
        const bool bFirst = &band == &bands.front(), bLast = &band == &bands.back();
        if ((!bFirst && IsZero(band.Number(LowerBound))) || IsZero(band.Number(FirstAngle)) ||
            IsZero(band.Number(SecondAngle)) || (!bLast && !band.Has(UpperBound)))
            return band.nRow;
    }
    return 0;
}

int FindInverted(const std::vector<Band>& bands) {
    for (const Band& band : bands)
        if (band.Has(UpperBound) && band.Number(UpperBound) - kTolerance < band.Number(LowerBound))
            return band.nRow;
    return 0;
}

}  // namespace

DraftTableResult CheckDraftTable(std::span<const MfxTableRow> rows) {
    std::vector<Band> bands;
    if (const int nRow = CollectBands(rows, bands)) return Flaw(DraftTableFlaw::IncompleteRow, nRow);
    if (bands.empty()) return Flaw(DraftTableFlaw::NoBands, 0);
    if (const int nRow = FindGap(bands)) return Flaw(DraftTableFlaw::IncompleteRow, nRow);
    if (const int nRow = FindMissingValue(bands)) return Flaw(DraftTableFlaw::IncompleteRow, nRow);
    if (const int nRow = FindInverted(bands)) return Flaw(DraftTableFlaw::UpperNotAboveLower, nRow);
    for (std::size_t i = 1; i < bands.size(); ++i) {
        const double expected = bands[i - 1].Number(UpperBound);
        if (std::fabs(bands[i].Number(LowerBound) - expected) > kTolerance)
            return Flaw(DraftTableFlaw::NotContiguous, bands[i].nRow, expected);
    }
    DraftTableResult result;
    for (const Band& band : bands) result.bands.push_back(band.texts);
    return result;
}
