// The rule of a document that a command line names.
#pragma once

#include "CommandLine.h"
#include "RuleDocument.h"

#include <string>

// Adds --rule, which takes an id, or a key such as 19040#2.
void AddRuleOption(CLI::App& command, std::string& ruleKey);

// The rule with that key. Throws CommandError (WrongUsage) that tells the document's rules.
const RuleDocument::Entry& RequireRule(const RuleDocument& document, const std::string& ruleKey);
