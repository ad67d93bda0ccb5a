#pragma once

#include "Finding.h"
#include "RuleDocument.h"
#include "RuleValues.h"

#include <vector>

// A value that a conversion does not keep.
struct ValueLoss {
    int line = 0;           // of the document
    std::string rule = {};  // name in the user's language
    RuleValue before = {};  // in the old units
    RuleValue exact = {};   // what it should be in the new ones
    RuleValue after = {};   // what the converted document says
    double size = 0.0;      // RelativeDifference of the last two
};

// What became of a conversion.
struct Conversion {
    // Content that the module ignores. It would keep its old numbers in the new units, so the document is not
    // converted.
    std::vector<Finding> ignored = {};

    // Numbers that are too large in the new units; the document is not converted.
    std::vector<ValueLoss> tooLarge = {};

    // Values of the converted document that have fewer than nine right digits, the largest losses first:
    // numbers that a record keeps as texts of six decimals can need more of them in the new unit, and empty
    // cells of the draft angle table become zero.
    std::vector<ValueLoss> losses = {};

    bool IsDone() const { return ignored.empty() && tooLarge.empty(); }
};

// Converts a document to other units, in memory. Throws DocumentError when a rule can't write itself, or
// can't be read again; the document is of no use then.
Conversion ConvertDocument(RuleDocument& document, const UnitPair& units);
