#pragma once

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
};
