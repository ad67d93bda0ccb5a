#pragma once

#include "MfxRule.h"

#include <string>
#include <variant>
#include <vector>

// One value of a rule and the place where it stands, for comparing rules value by value.
struct RuleValue {
    std::string constraint;  // the constraint's name, numbered if not the only one; empty for the rule's own
    std::string label;       // what the value is, in the user's language: "Minimum wall thickness", "angle 1"
    int nRow = 0;            // from 1 in lists and tables; 0 for what there is once
    std::string unit;        // symbol; empty for a value without a unit
    std::variant<double, std::string> value;  // a text where there is no number: names, flags, "no limit"
    double storedWithin = 0.0;                // how far a number's text form may be from it, in its unit
};

// What a user sets in a rule, in the rule's order: status, severity, parameters and constraints.
std::vector<RuleValue> ListRuleValues(const CMfxRule& rule);

// The value as it is shown, with its unit.
std::string FormatRuleValue(const RuleValue& value);

// Whether two values at the same place are the same: numbers within nine digits or within what their text
// forms lose.
bool IsSameValue(const RuleValue& first, const RuleValue& second);
