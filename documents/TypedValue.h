// Values as people type them.
#pragma once

#include "RuleValues.h"

// What the text means at the place of a value: "6mm", "0.25 in", "1.5 deg", "no limit", "-" for not given,
// "yes", "kg". A number without a unit is in that of the rule, and so is the result. Throws EditError for a
// text that means nothing there, and for a unit of another kind.
ValueContent ParseTypedValue(const std::string& text, const RuleValue& place, const RuleUnits& units);
