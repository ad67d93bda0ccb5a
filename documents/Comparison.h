#pragma once

#include "RuleDocument.h"
#include "RuleValues.h"

#include <optional>
#include <string>
#include <vector>

// Where two documents differ: in a value, or in a whole constraint or rule that only one of them has.
struct Difference {
    std::string rule;                      // name in the user's language, or as the record says it
    int ruleId = 0;                        // 0 of a record that the module does not know
    std::string constraint;                // empty in the rule itself
    std::string label;                     // what the value is; "constraint" or "rule" for a whole one
    int row = 0;                           // from 1; 0 for what there is once
    std::optional<RuleValue> left, right;  // nothing on the side that does not have it
};

// The differences value by value, in the units of the left document. Of records that the module does not know
// the texts are compared.
std::vector<Difference> CompareDocuments(const RuleDocument& left, const RuleDocument& right);

// What the document's rules are by default, on the left, and what they are, in the document's units.
std::vector<Difference> CompareWithDefaults(const RuleDocument& document);
