#pragma once

#include "Finding.h"
#include "RuleDocument.h"
#include "RuleValues.h"

#include <vector>

// A value that a conversion does not keep.
struct ValueLoss {
    int line = 0;       // of the converted document
    std::string rule;   // name in the user's language
    RuleValue before;   // in the old units
    RuleValue exact;    // what it should be in the new ones
    RuleValue after;    // what the converted document says
    double size = 0.0;  // RelativeDifference of the last two
};

// What became of a conversion.
struct Conversion {
    // Why the document was not converted: what the module ignores would be taken for values in the new units.
    std::vector<Finding> ignored;

    // Numbers too large for the new units; the document was not converted, and must not be saved.
    std::vector<ValueLoss> tooLarge;

    // Values of the converted document that have fewer than nine right digits, the largest losses first:
    // numbers that a record keeps as texts of six decimals can need more of them in the new unit, and empty
    // cells of the draft angle table become zero.
    std::vector<ValueLoss> losses;

    bool IsDone() const { return ignored.empty() && tooLarge.empty(); }
};

// Converts a document to other units, in memory.
Conversion ConvertDocument(RuleDocument& document, const UnitPair& units);
