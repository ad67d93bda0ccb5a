#pragma once

#include "Finding.h"
#include "JsonOutput.h"
#include "RuleDocument.h"

#include <string>
#include <vector>

// A rule document with everything that FormatRule shows of its rules, the names of the rules that the module
// does not know, and findings. See docs/show.schema.json.
Json DocumentToJson(const std::string& file, const RuleDocument& document,
                    const std::vector<Finding>& findings);
