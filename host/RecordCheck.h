#pragma once

#include "Finding.h"
#include "RuleDocument.h"

// What the module passes over in silence when it reads a document: rules and parameters that it does not
// know, texts that are no numbers, constraints that do not match. In the order of the document.
std::vector<Finding> CheckRecords(const RuleDocument& document);

// Prints the findings about what a reader of the document does not get to see, a line each, to standard
// error; false when there are none. With a rule id, those about such rules alone.
bool PrintUnread(const RuleDocument& document, int nRuleId = 0);
