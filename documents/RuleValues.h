#pragma once

#include "RecordLocation.h"
#include "Units.h"
#include "ValueContent.h"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// One value of a rule: what it is, and what it is set to. The key names the value in its rule, the same in
// every language: "status", "10067", "Steel/10068/active", "29183/2/to" for row 2 of the table's column "to",
// "Steel/29120/3" for the third value of a list.
struct RuleValue {
    std::string key = {};
    std::string constraint =
        {};                  // the constraint's name, numbered if not the only one; empty for the rule's own
    std::string label = {};  // in the user's language: "Minimum wall thickness", "angle 1"
    int row = 0;             // from 1; 0 outside lists and tables
    Quantity quantity = Quantity::None;
    std::string unit = {};  // symbol; empty for what is no number or has no unit
    ValueContent content = {};
    double roundingError = 0.0;  // the largest of the number's text form, in its unit
    RecordLocation location = {};
};

// What a user sets in a rule, in the rule's order: status, severity, parameters and constraints.
std::vector<RuleValue> ListRuleValues(const CMfxRule& rule);

// The same value in other units.
RuleValue ConvertValue(RuleValue value, const RuleUnits& from, const RuleUnits& to);

// Finds the value of a list that has the same key as another one. Refers to the list.
class RuleValueIndex {
  public:
    explicit RuleValueIndex(const std::vector<RuleValue>& values);
    const RuleValue* FindCounterpart(const RuleValue& value) const;  // null when there is none

  private:
    std::map<std::string_view, const RuleValue*> m_values;
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
