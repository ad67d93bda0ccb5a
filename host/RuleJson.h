#pragma once

#include "JsonOutput.h"
#include "RuleDocument.h"

#include <string>

// A rule document with everything that FormatRule shows of its rules; the rules that the module does not know
// are named. See docs/show.schema.json.
Json DocumentToJson(const std::string& file, const RuleDocument& document);
