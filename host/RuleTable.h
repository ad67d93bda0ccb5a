#pragma once

#include "MfxRule.h"

#include <string>

// A rule's parameters and constraints as aligned tables, values in the rule's units.
std::string FormatRule(const CMfxRule& rule);
