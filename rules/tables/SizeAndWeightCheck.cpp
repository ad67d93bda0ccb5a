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

// The upper size of a band; zero in the last one means that there is no upper limit.
double UpperSize(Bands bands, std::size_t nBand) {
    const double sizeMax = bands[nBand].band.sizeMax;
    return nBand + 1 == bands.size() && IsZero(sizeMax) ? NoUpperLimitValue : sizeMax;
}

double UpperWeight(Bands bands, std::size_t nBand) {
    return bands[nBand].band.weightMax;
}

// What is wrong with a row, and with which of its values.
struct Fault {
    Flaw flaw = Flaw::None;
    BandCell::Index cell = BandCell::SizeMin;
};

// The first band may begin at size zero, and the last one's upper size may be zero. A band that is the only
// one is first and last.
Fault FindForbiddenZero(Bands bands, std::size_t nBand) {
    const CastSizeAndWeightBand& band = bands[nBand].band;
    const bool bFirst = nBand == 0, bLast = nBand + 1 == bands.size();
    if ((bFirst || !bLast) && IsZero(band.sizeMax)) return {Flaw::MissingOrZero, BandCell::SizeMax};
    if (IsZero(band.weightMin)) return {Flaw::MissingOrZero, BandCell::WeightMin};
    if (IsZero(band.weightMax)) return {Flaw::MissingOrZero, BandCell::WeightMax};
    if (bLast && IsZero(band.thickness)) return {Flaw::MissingOrZero, BandCell::Thickness};
    return {};
}

Fault FindIncompletePair(const CastSizeAndWeightBand& band) {
    const bool bHalfSize = IsGiven(band.sizeMin) != IsGiven(band.sizeMax);
    const bool bHalfWeight = IsGiven(band.weightMin) != IsGiven(band.weightMax);
    const auto missingSize = IsGiven(band.sizeMin) ? BandCell::SizeMax : BandCell::SizeMin;
    const auto missingWeight = IsGiven(band.weightMin) ? BandCell::WeightMax : BandCell::WeightMin;
    if (bHalfSize && bHalfWeight) return {Flaw::SizeAndWeightIncomplete, missingSize};
    if (bHalfSize) return {Flaw::SizeIncomplete, missingSize};
    if (bHalfWeight) return {Flaw::WeightIncomplete, missingWeight};
    const bool bHasLimits = IsGiven(band.sizeMin) || IsGiven(band.weightMin);
    if (bHasLimits && !IsGiven(band.thickness)) return {Flaw::ThicknessMissing, BandCell::Thickness};
    return {};
}

Fault FindInverted(Bands bands, std::size_t nBand) {
    const CastSizeAndWeightBand& band = bands[nBand].band;
    const double sizeMax = UpperSize(bands, nBand);
    if (!IsEqual(sizeMax, kValueNotGiven) && band.sizeMin > sizeMax - kTolerance)
        return {Flaw::SizeInverted, BandCell::SizeMax};
    const double weightMax = UpperWeight(bands, nBand);
    if (!IsEqual(weightMax, kValueNotGiven) && band.weightMin > weightMax - kTolerance)
        return {Flaw::WeightInverted, BandCell::WeightMax};
    return {};
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
            return {Flaw::SizeNotContiguous, bands[i].nRow, BandCell::SizeMin, expected};
        if (!Continues(bands[i].band.weightMin, bands, i, UpperWeight, expected))
            return {Flaw::WeightNotContiguous, bands[i].nRow, BandCell::WeightMin, expected};
    }
    return {};
}

// Faults of a row, in the order in which they are reported.
Fault CheckRow(Bands bands, std::size_t nBand) {
    Fault fault = FindForbiddenZero(bands, nBand);
    if (fault.flaw == Flaw::None) fault = FindIncompletePair(bands[nBand].band);
    return fault.flaw == Flaw::None ? FindInverted(bands, nBand) : fault;
}

Fault CheckRowWhileTyping(Bands bands, std::size_t nBand) {
    const Fault incomplete = FindIncompletePair(bands[nBand].band);
    if (incomplete.flaw != Flaw::None) return {Flaw::IncompleteWhileTyping, incomplete.cell};
    return FindInverted(bands, nBand);
}

}  // namespace

std::vector<NumberedBand> NumberBands(const std::vector<CastSizeAndWeightBand>& bands) {
    std::vector<NumberedBand> numbered;
    for (const CastSizeAndWeightBand& band : bands)
        numbered.push_back({static_cast<int>(numbered.size()) + 1, band});
    return numbered;
}

SizeAndWeightResult CheckSizeAndWeightBands(Bands bands) {
    for (std::size_t i = 0; i < bands.size(); ++i) {
        const int nExpectedRow = static_cast<int>(i) + 1;
        if (bands[i].nRow != nExpectedRow) return {Flaw::MissingOrZero, nExpectedRow};
        if (const Fault fault = CheckRow(bands, i); fault.flaw != Flaw::None)
            return {fault.flaw, bands[i].nRow, fault.cell};
    }
    if (std::ranges::none_of(bands, IsUsable, &NumberedBand::band)) return {Flaw::NoBands, 0};
    return CheckContiguity(bands);
}

SizeAndWeightResult CheckSizeAndWeightBandsWhileTyping(Bands bands) {
    for (std::size_t i = 0; i < bands.size(); ++i)
        if (const Fault fault = CheckRowWhileTyping(bands, i); fault.flaw != Flaw::None)
            return {fault.flaw, bands[i].nRow, fault.cell};
    return CheckContiguity(bands);
}
