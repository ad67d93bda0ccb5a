#include "SizeAndWeightCheck.h"

#include "NumberText.h"

#include <algorithm>
#include <cmath>

namespace {

using Flaw = SizeAndWeightFlaw;
using Bands = std::span<const NumberedBand>;

bool IsEqual(double first, double second) {
    return std::fabs(first - second) <= kTolerance;
}
bool IsZero(double value) {
    return IsEqual(value, 0.0);
}

// Compares exactly: the dialog leaves the marker itself where no value was read.
bool IsGiven(double value) {
    return value != kValueNotGiven;
}

// The upper size of a band; zero in the last one means that there is no upper limit.
double UpperSize(Bands bands, std::size_t nBand) {
    const double sizeMax = bands[nBand].band.sizeMax;
    return nBand + 1 == bands.size() && IsZero(sizeMax) ? NoUpperLimitValue : sizeMax;
}

double UpperWeight(Bands bands, std::size_t nBand) {
    return bands[nBand].band.weightMax;
}

// The first band may begin at size zero, and the last one's upper size may be zero. A band that is the only
// one is first and last.
bool HasForbiddenZero(Bands bands, std::size_t nBand) {
    const CastSizeAndWeightBand& band = bands[nBand].band;
    const bool bFirst = nBand == 0, bLast = nBand + 1 == bands.size();
    if (IsZero(band.weightMin) || IsZero(band.weightMax)) return true;
    if ((bFirst || !bLast) && IsZero(band.sizeMax)) return true;
    return bLast && IsZero(band.thickness);
}

Flaw FindIncompletePair(const CastSizeAndWeightBand& band) {
    const bool bHalfSize = IsGiven(band.sizeMin) != IsGiven(band.sizeMax);
    const bool bHalfWeight = IsGiven(band.weightMin) != IsGiven(band.weightMax);
    if (bHalfSize && bHalfWeight) return Flaw::SizeAndWeightIncomplete;
    if (bHalfSize) return Flaw::SizeIncomplete;
    if (bHalfWeight) return Flaw::WeightIncomplete;
    const bool bHasLimits = IsGiven(band.sizeMin) || IsGiven(band.weightMin);
    return bHasLimits && !IsGiven(band.thickness) ? Flaw::ThicknessMissing : Flaw::None;
}

// Whether a wall thickness can be found by the band.
bool IsUsable(const NumberedBand& numbered) {
    const CastSizeAndWeightBand& band = numbered.band;
    const bool bHasSizes = IsGiven(band.sizeMin) && IsGiven(band.sizeMax);
    const bool bHasWeights = IsGiven(band.weightMin) && IsGiven(band.weightMax);
    return (bHasSizes || bHasWeights) && IsGiven(band.thickness);
}

Flaw FindInverted(Bands bands, std::size_t nBand) {
    const CastSizeAndWeightBand& band = bands[nBand].band;
    const double sizeMax = UpperSize(bands, nBand);
    if (!IsEqual(sizeMax, kValueNotGiven) && band.sizeMin > sizeMax - kTolerance) return Flaw::SizeInverted;
    const double weightMax = UpperWeight(bands, nBand);
    if (!IsEqual(weightMax, kValueNotGiven) && band.weightMin > weightMax - kTolerance)
        return Flaw::WeightInverted;
    return Flaw::None;
}

// Whether the value is the upper bound of the nearest earlier band that has one; that bound is expected. True
// when no earlier band has one.
bool Continues(double value, Bands bands, std::size_t nBand, double (*upper)(Bands, std::size_t),
               double& expected) {
    if (!IsGiven(value)) return true;
    while (nBand > 0) {
        expected = upper(bands, --nBand);
        if (IsGiven(expected)) return IsEqual(value, expected);
    }
    return true;
}

SizeAndWeightResult CheckContiguity(Bands bands) {
    double expected = 0.0;
    for (std::size_t i = 1; i < bands.size(); ++i) {
        if (!Continues(bands[i].band.sizeMin, bands, i, UpperSize, expected))
            return {Flaw::SizeNotContiguous, bands[i].nRow, expected};
        if (!Continues(bands[i].band.weightMin, bands, i, UpperWeight, expected))
            return {Flaw::WeightNotContiguous, bands[i].nRow, expected};
    }
    return {};
}

}  // namespace

SizeAndWeightResult CheckSizeAndWeightBands(Bands bands) {
    for (std::size_t i = 0; i < bands.size(); ++i) {
        const int nExpectedRow = static_cast<int>(i) + 1;
        if (bands[i].nRow != nExpectedRow) return {Flaw::MissingOrZero, nExpectedRow, 0.0};
        if (HasForbiddenZero(bands, i)) return {Flaw::MissingOrZero, bands[i].nRow, 0.0};
        if (const Flaw flaw = FindIncompletePair(bands[i].band); flaw != Flaw::None)
            return {flaw, bands[i].nRow, 0.0};
        if (const Flaw flaw = FindInverted(bands, i); flaw != Flaw::None) return {flaw, bands[i].nRow, 0.0};
    }
    if (std::ranges::none_of(bands, IsUsable)) return {Flaw::NoBands, 0, 0.0};
    return CheckContiguity(bands);
}

SizeAndWeightResult CheckSizeAndWeightBandsWhileTyping(Bands bands) {
    for (std::size_t i = 0; i < bands.size(); ++i) {
        if (FindIncompletePair(bands[i].band) != Flaw::None)
            return {Flaw::IncompleteWhileTyping, bands[i].nRow, 0.0};
        if (const Flaw flaw = FindInverted(bands, i); flaw != Flaw::None) return {flaw, bands[i].nRow, 0.0};
    }
    return CheckContiguity(bands);
}
