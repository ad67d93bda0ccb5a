#pragma once

#include "RuleValues.h"

#include <map>
#include <optional>
#include <string>

// What such a number measures.
Quantity QuantityOfOptionalValue(const std::string& key);

// Adds and removes numbers that a rule may have or lack: elements of a list behind the first one ("10067/2"),
// and result criteria ("10067/percent-deviation/1/warning", ".../second"). By their keys, before any is
// removed and after all are added; nothing for what is removed. Throws EditError for a key of something else.
void SetOptionalValues(CMfxRule& rule, const std::map<std::string, std::optional<double>>& values);
