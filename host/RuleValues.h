#pragma once

#include "MfxRule.h"
#include "RuleDocument.h"

#include <array>
#include <map>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

// What stands where a number may: nothing when it is not given, and a word where no unit applies: "no limit",
// a name, or a text of the document that is no number.
using NumberOrWord = std::variant<std::monostate, double, std::string>;

// What a rule means by a stored number, which in a band may be a mark for "not given" or "no limit", or by a
// cell of a size-band table.
NumberOrWord ContentOfNumber(double value, bool bOfBand);
NumberOrWord ContentOfCell(const MfxTableRow& row, std::size_t nCell);

// A number with as many digits as a person compares, and all of those before the point. No exponent, but for
// sizes that nothing in a casting has.
inline constexpr int kShownDigits = 7;
std::string FormatNumber(double value, int nDigits = kShownDigits);

// "-" for what is not given.
std::string FormatNumberOrWord(const NumberOrWord& content, int nDigits = kShownDigits);

// Symbol of the unit of a parameter's numbers; empty for numbers without one.
std::string UnitOfParameter(const CMfxParamStorage& storage, const CMfxRule& rule);

struct BandColumn {
    std::string name, unit;
};

// The columns of a size-band table: two lengths, then angles.
std::array<BandColumn, 5> BandColumns(const CMfxRule& rule);

// One value of a rule and the place where it stands, for comparing rules value by value.
struct RuleValue {
    std::string constraint;  // the constraint's name, numbered if not the only one; empty for the rule's own
    std::string label;       // what the value is, in the user's language: "Minimum wall thickness", "angle 1"
    int nRow = 0;            // from 1 in lists and tables; 0 for what there is once
    std::string unit;        // symbol; empty for what is no number or has no unit
    NumberOrWord value;
    double storedWithin = 0.0;  // how far a number's text form may be from it, in its unit
    RecordPlace place = {};
};

// What a user sets in a rule, in the rule's order: status, severity, parameters and constraints.
std::vector<RuleValue> ListRuleValues(const CMfxRule& rule);

// Lengths and angles in the units asked for, masses in kilograms, whatever unit the rule keeps them in.
RuleValue InUnits(RuleValue value, const UnitPair& from, const UnitPair& to);

// Finds the value of a list that stands at the same place as another one. Refers to the list.
class PlaceIndex {
  public:
    explicit PlaceIndex(const std::vector<RuleValue>& values);
    const RuleValue* Find(const RuleValue& place) const;  // null when there is none

  private:
    using Place = std::tuple<int, const std::string&, const std::string&>;
    static Place PlaceOf(const RuleValue& value) { return {value.nRow, value.label, value.constraint}; }

    std::map<Place, const RuleValue*> m_values;
};

// The value as it is shown, with its unit.
std::string FormatRuleValue(const RuleValue& value, int nDigits = kShownDigits);

// Whether two values at the same place are the same: numbers within nine digits or within what their text
// forms lose.
bool IsSameValue(const RuleValue& first, const RuleValue& second);

// How much of a value is not in another one that should be the same, from 0, which is nothing within nine
// digits, to 1.
double LossOf(const RuleValue& exact, const RuleValue& stored);
