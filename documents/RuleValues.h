#pragma once

#include "RecordLocation.h"
#include "Units.h"
#include "ValueContent.h"

#include <array>
#include <map>
#include <string>
#include <tuple>
#include <vector>

// One value of a rule: what it is, and what it is set to.
struct RuleValue {
    std::string constraint =
        {};                  // the constraint's name, numbered if not the only one; empty for the rule's own
    std::string label = {};  // in the user's language: "Minimum wall thickness", "angle 1"
    int row = 0;             // from 1 in lists and tables; 0 for what there is once
    Quantity quantity = Quantity::None;
    std::string unit = {};  // symbol; empty for what is no number or has no unit
    ValueContent content = {};
    double roundingError = 0.0;  // how far a number may be from its text form, in its unit
    RecordLocation location = {};
};

// What a user sets in a rule, in the rule's order: status, severity, parameters and constraints.
std::vector<RuleValue> ListRuleValues(const CMfxRule& rule);

// The same value in other units.
RuleValue ConvertValue(RuleValue value, const RuleUnits& from, const RuleUnits& to);

// Finds the value of a list that has the same constraint, label and row as another one. Refers to the list.
class RuleValueIndex {
  public:
    explicit RuleValueIndex(const std::vector<RuleValue>& values);
    const RuleValue* FindCounterpart(const RuleValue& value) const;  // null when there is none

  private:
    using Key = std::tuple<int, const std::string&, const std::string&>;
    static Key KeyOf(const RuleValue& value) { return {value.row, value.label, value.constraint}; }

    std::map<Key, const RuleValue*> m_values;
};

// The value as it is shown, with its unit.
std::string FormatRuleValue(const RuleValue& value, int digits = kShownDigits);

// Whether two counterparts are the same: numbers within nine digits or within their rounding errors.
bool IsSameValue(const RuleValue& first, const RuleValue& second);

// Relative difference of two numbers, from 0 (the same to nine digits) to 1; of other contents 0 or 1.
double RelativeDifference(const ValueContent& first, const ValueContent& second);

// Symbol of the unit of a parameter's numbers; empty for numbers without one.
std::string UnitOfParameter(const CMfxParamStorage& storage, const CMfxRule& rule);

// A column of the draft angle table.
struct BandColumn {
    std::string name, unit;
};
std::array<BandColumn, 5> BandColumns(const CMfxRule& rule);
