#pragma once

#include "Finding.h"
#include "RuleDocument.h"

// What the module passes over in silence when it reads a document: rules and parameters that it does not
// know, texts that are no numbers, constraints that do not match; and what it reads but can't be meant.
std::vector<Finding> CheckRecords(const RuleDocument& document);

// The findings about what a reader of the document does not get to see, by line.
std::vector<Finding> FindUnread(const RuleDocument& document);

// Prints findings to standard error, a line each; false when there are none.
bool PrintFindings(const RuleDocument& document, const std::vector<Finding>& findings);
