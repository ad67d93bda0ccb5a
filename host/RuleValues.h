#pragma once

#include "MfxRule.h"
#include "RuleDocument.h"
#include "RuleTable.h"

#include <string>
#include <variant>
#include <vector>

// One value of a rule and the place where it stands, for comparing rules value by value.
struct RuleValue {
    std::string constraint;  // name of the constraint; empty for the rule's own parameters
    std::string label;       // what the value is, in the user's language: "Minimum wall thickness", "angle 1"
    int nRow = 0;            // from 1 in lists and tables; 0 for what there is once
    std::string unit;        // symbol; empty for a value without a unit
    std::variant<double, std::string> value;  // a text where there is no number: names, flags, "no limit"
    double storedWithin = 0.0;                // how far a number's text form may be from it, in its unit
    RecordPlace place = {};
};

// What a user sets in a rule, in the rule's order: status, severity, parameters and constraints.
std::vector<RuleValue> ListRuleValues(const CMfxRule& rule);

// Lengths and angles in the units asked for, masses in kilograms, whatever unit the rule keeps them in.
RuleValue InUnits(RuleValue value, const UnitPair& from, const UnitPair& to);

// The value at the same place in a list of values, or null. Searched from the number in the list where it is
// likely to be.
const RuleValue* FindPlace(const std::vector<RuleValue>& values, const RuleValue& place, std::size_t nLikely);

// The value as it is shown, with its unit.
std::string FormatRuleValue(const RuleValue& value, int nDigits = kShownDigits);

// Whether two values at the same place are the same: numbers within nine digits or within what their text
// forms lose.
bool IsSameValue(const RuleValue& first, const RuleValue& second);

// How much of a value is not in another one that should be the same, from 0, which is nothing within nine
// digits, to 1.
double LossOf(const RuleValue& exact, const RuleValue& stored);
