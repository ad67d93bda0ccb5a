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
    std::string key;                       // ValueKey.h; of a value, a whole constraint or a whole rule
    long paramId = 0;                      // 0 when it is not about a parameter
    std::string constraint = {};           // empty for the rule's own values
    std::string label;                     // what the value is; "constraint" or "rule" for a whole one
    int row = 0;                           // from 1; 0 outside lists and tables
    std::optional<RuleValue> left, right;  // empty on the side without the value
};

// The differences value by value, in the units of the left document. Of records that the module does not know
// the texts are compared.
std::vector<Difference> CompareDocuments(const RuleDocument& left, const RuleDocument& right);

// The default values of the document's rules (left) against their values (right), in the document's units.
std::vector<Difference> CompareWithDefaults(const RuleDocument& document);
