#pragma once

#include "RecordLocation.h"
#include "Units.h"
#include "ValueContent.h"

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What kind of place a value has in its rule.
enum class ValueKind {
    Status,
    Severity,
    ByMaterial,
    ConstraintActive,
    ParameterActive,
    Number,
    Text,
    Cell,
    Deviation
};

// One value of a rule: what it is, and what it is set to.
struct RuleValue {
    std::string key = {};  // names the value in its rule, without the rule's own key: ValueKey.h
    std::string constraint =
        {};                   // the constraint's name, numbered if not the only one; empty for the rule's own
    std::string label = {};   // in the user's language: "Minimum wall thickness", "angle 1"
    int row = 0;              // from 1; 0 outside lists and tables
    std::string table = {};   // of a value in a table of bands its key: "29183", "Steel/band"
    std::string column = {};  // of that table: "to", "29120"
    Quantity quantity = Quantity::None;
    std::string unit = {};  // symbol; empty for what is no number or has no unit
    ValueContent content = {};
    double roundingError = 0.0;  // the largest of the number's text form, in its unit
    RecordLocation location = {};
    ValueKind kind = ValueKind::Text;
    std::size_t cell = 0;  // of a Cell its column, of a Deviation its map and member
};

// What a user sets in a rule, in the rule's order: status, severity, parameters and constraints. What a row
// of bands lacks is listed as not given.
std::vector<RuleValue> ListRuleValues(const CMfxRule& rule);

// The value of a table of bands without its content; nothing where the rule has no such table or column.
std::optional<RuleValue> FindCell(const CMfxRule& rule, const std::string& table, int row,
                                  const std::string& column);

// The first number of a parameter; nothing without one, and without a parameter.
std::optional<double> FirstNumber(const CMfxParamStorage* parameter);

// The number of bands of a group; its lists may have different lengths.
int CountBands(const CMFXConstraint& group);

// The keys of a rule's constraints, in their order.
std::vector<std::string> ConstraintKeys(const CMfxRule& rule);

// Whether the rule's first constraint is there, and active or not.
bool IsFirstConstraint(const CMfxRule& rule, bool isActive);

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
    std::string key, name, unit;
};
std::array<BandColumn, 5> BandColumns(const CMfxRule& rule);
