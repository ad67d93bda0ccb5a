#pragma once

#include "Finding.h"
#include "HostError.h"
#include "RuleModule.h"

#include <afx.h>

#include <vector>

struct CheckOptions {
    std::vector<CString> files;
    Severity severity = Severity::Hint;  // the least that is reported
    bool bJson = false;
};

// Checks rule documents and prints a line per finding, or all of them as JSON. UnreadableInput when a file
// could not be read, otherwise Findings when something was found or a file has no rule to check. Every file
// is checked, whatever is wrong with the others.
ExitCode CheckDocuments(const RuleModule& module, const CheckOptions& options);
