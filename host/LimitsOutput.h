#pragma once

#include "CastingLimits.h"

#include <string>

// The limits of one casting as tables, a rule after the other.
std::string FormatLimits(const std::vector<RuleLimits>& limits);

// The same as docs/limits.schema.json says.
void PrintLimitsAsJson(const CastingLimits& document, const Casting& casting,
                       const std::vector<RuleLimits>& limits);
