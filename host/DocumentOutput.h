// What several commands print of a document.
#pragma once

#include "Finding.h"
#include "JsonOutput.h"
#include "RuleDocument.h"

#include <string>
#include <vector>

// "file.xml: 4 rules in millimetres and degrees" with a line feed.
std::string DocumentHeading(const CString& path, const RuleDocument& document);

// "file.xml:12: Variable Draft Angle: parameter 29183, ..." with a line feed, without the severity.
std::string FindingLine(const RuleDocument& document, const Finding& finding);

// Prints findings to standard error, a line each; false when there are none.
bool PrintFindings(const RuleDocument& document, const std::vector<Finding>& findings);

Json FindingToJson(const Finding& finding);
