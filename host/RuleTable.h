#pragma once

#include "MfxRule.h"

#include <string>

// A rule's parameters and constraints as aligned tables, values in the rule's units.
std::string FormatRule(const CMfxRule& rule);

// A number with as many digits as a person compares, and all of those before the point. No exponent, but for
// sizes that nothing in a casting has.
inline constexpr int kShownDigits = 7;
std::string FormatNumber(double value, int nDigits = kShownDigits);

// Symbol of the unit of a parameter's numbers; empty for numbers without one.
std::string UnitOfParameter(const CMfxParamStorage& storage, const CMfxRule& rule);
