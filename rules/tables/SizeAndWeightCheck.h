// The check of a material group's bands of cast size and cast weight, as their dialog holds them. Needs no
// windows.
#pragma once

#include "CastSizeAndWeightBand.h"

#include <span>
#include <vector>

// Flaws by their code; each code has a message of its own.
enum class SizeAndWeightFlaw {
    None = -1,
    SizeInverted = 0,       // the size band ends before it begins
    MissingOrZero = 1,      // a row is missing, or a value is zero that must not be
    SizeNotContiguous = 2,  // the size band does not begin where the one before it ends
    NoBands = 3,            // no band of the group has both sizes or both weights, and a thickness
    WeightInverted = 4,
    IncompleteWhileTyping = 5,  // the row is not finished
    WeightNotContiguous = 6,
    SizeIncomplete = 7,  // one of the two sizes is missing
    WeightIncomplete = 8,
    SizeAndWeightIncomplete = 9,
    ThicknessMissing = 10,
};

struct SizeAndWeightResult {
    SizeAndWeightFlaw flaw = SizeAndWeightFlaw::None;
    int nRow = 0;                              // from 1; 0 for NoBands
    BandCell::Index cell = BandCell::SizeMin;  // the value that is at fault
    double expected = 0.0;                     // SizeNotContiguous, WeightNotContiguous: what it should be
};

// A band and the number of the grid row that it stands in, from 1.
struct NumberedBand {
    int nRow;
    CastSizeAndWeightBand band;
};

// The bands of a group, which stand in the rows from the first on.
std::vector<NumberedBand> NumberBands(const std::vector<CastSizeAndWeightBand>& bands);

// The check on leaving a group and on OK. The last of several bands may have the upper size zero, which means
// no upper limit. An only band is first and last at once: nothing but its lower size may be zero.
SizeAndWeightResult CheckSizeAndWeightBands(std::span<const NumberedBand> bands);

// The check after each edit. A row that is not finished yet has a flaw of its own.
SizeAndWeightResult CheckSizeAndWeightBandsWhileTyping(std::span<const NumberedBand> bands);
