#pragma once

#include "RuleDocument.h"

#include <string>
#include <vector>

// What the module passes over in silence when it reads a document: rules that it does not know, and texts
// that are no numbers where numbers belong. One line of text each, with file, line and element.
std::vector<std::string> FindRecordProblems(const RuleDocument& document);
