#pragma once

#include <cstddef>
#include <iterator>
#include <vector>

class CMFXConstraint;

// Stands in a band for a value that is not given.
inline constexpr double kValueNotGiven = -1.0;

// One row of a material group: the wall thickness that a casting of that size and weight needs at least.
// Sizes and thickness are in the rule's length unit, weights in the unit that parameter kMassUnitId names.
struct CastSizeAndWeightBand {
    double sizeMin = kValueNotGiven;
    double sizeMax = kValueNotGiven;
    double weightMin = kValueNotGiven;
    double weightMax = kValueNotGiven;
    double thickness = kValueNotGiven;
    bool operator==(const CastSizeAndWeightBand&) const = default;
};

// The values of a band, in the order of records and of the dialog's columns.
namespace BandCell {
enum Index : std::size_t { SizeMin, SizeMax, WeightMin, WeightMax, Thickness, Count };
}
inline constexpr double CastSizeAndWeightBand::*kBandValues[] = {
    &CastSizeAndWeightBand::sizeMin, &CastSizeAndWeightBand::sizeMax, &CastSizeAndWeightBand::weightMin,
    &CastSizeAndWeightBand::weightMax, &CastSizeAndWeightBand::thickness};
static_assert(std::size(kBandValues) == BandCell::Count);

// Compares exactly: whoever reads a band puts the mark itself where there is no value.
inline bool IsGiven(double value) {
    return value != kValueNotGiven;
}

// Whether none of the values is given.
bool IsBlank(const CastSizeAndWeightBand& band);

// Whether a wall thickness can be found by the band.
bool IsUsable(const CastSizeAndWeightBand& band);

// The bands of a material group without blank ones. Any negative number is read as not given, and so is one
// that its list lacks.
std::vector<CastSizeAndWeightBand> ReadBands(const CMFXConstraint& group);
