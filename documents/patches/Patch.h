#pragma once

#include "Comparison.h"

// What makes one document of another: their differences, and what is needed to find their places in a third
// document. Numbers are in the left document's units, weights in kilograms.
struct Patch {
    // A table of bands as the left document has it: rows are found by what they say, not by their numbers.
    struct Table {
        std::string key;  // of the document: "19040/29183"
        std::vector<BandRow> rows;
    };

    // A record that the module does not know: it is replaced as a whole.
    struct Record {
        std::string key;
        std::string left, right;  // its XML; empty on the side that lacks it
    };

    UnitPair units;
    std::vector<Difference> differences;
    std::vector<Table> tables;  // those with differences
    std::vector<Record> records;
};

Patch MakePatch(const RuleDocument& left, const RuleDocument& right);

// From the defaults of the document's rules to the document.
Patch MakePatchFromDefaults(const RuleDocument& document);
