#pragma once

#include "BandRows.h"
#include "RuleDocument.h"

#include <optional>
#include <string>
#include <vector>

// Changes of a rule. Each names its place as it is before the first of them.
struct RuleEdits {
    struct Value {
        std::string key;
        std::optional<RuleValue> value;  // nothing removes the element of a list
    };

    struct Row {
        std::string table;
        int row;  // is removed, or the new one comes behind it; 0 for the first
        bool isInserted = false;
        BandRow values = {};
    };

    UnitPair units;  // of the values; weights are in kilograms
    std::vector<Value> values = {};
    std::vector<Row> rows = {};
    std::vector<std::string> removedConstraints = {};           // their keys
    std::vector<std::vector<RuleValue>> addedConstraints = {};  // their values

    bool IsEmpty() const {
        return values.empty() && rows.empty() && removedConstraints.empty() && addedConstraints.empty();
    }
};

// What makes a rule say just these values.
RuleEdits EditsTo(const CMfxRule& rule, const std::vector<RuleValue>& values, const UnitPair& units);

// Changes the rule in memory. Throws EditError for a value that does not fit its place; the document is of no
// use then.
void ApplyEdits(RuleDocument& document, const RuleDocument::Entry& entry, const RuleEdits& edits);
