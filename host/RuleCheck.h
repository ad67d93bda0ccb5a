#pragma once

#include "Finding.h"
#include "RuleDocument.h"

// Whether the values of the rules make sense: bands that overlap, leave gaps or are inverted, limits that
// contradict each other, angles out of range; and as hints what is legal but unusual, and older forms of
// records. The bands are checked as their dialogs do. Of values that other findings call unread nothing is
// said.
std::vector<Finding> CheckRules(const RuleDocument& document, const std::vector<Finding>& findings);
