#pragma once

#include "RuleDocument.h"
#include "Finding.h"

#include <vector>

// The document's rules that the module knows; those are checked.
std::size_t CountRules(const RuleDocument& document);

// Everything that the checks find in a document, by line: what the module ignores, what is unusual, and
// values that make no sense.
std::vector<Finding> CheckDocument(const RuleDocument& document);

// The findings about what the module ignores when it reads the document, by line: rules and parameters that
// it does not know, texts that are no numbers, constraints that do not match. Nothing is said of values.
std::vector<Finding> FindIgnoredContent(const RuleDocument& document);

// Those of one rule.
std::vector<Finding> FindIgnoredContent(const RuleDocument& document, const RuleDocument::Entry& entry);
