#pragma once

#include "Finding.h"
#include "HostError.h"
#include "RuleModule.h"

#include <afx.h>

#include <string>
#include <vector>

// What is known of one file after its check.
struct FileReport {
    std::string file;
    std::string unreadable;  // why it could not be read; empty when it could
    UnitPair units;
    std::size_t nRules = 0;  // rules of the module
    std::vector<Finding> findings;
};

// Reads one rule document and checks it; findings of less than that severity are left out.
FileReport CheckFile(const CString& strFile, const RuleModule& module, Severity least);

// A line per finding.
std::string FormatReport(const FileReport& report);

struct CheckOptions {
    std::vector<CString> files;
    Severity severity = Severity::Hint;  // the least that is reported
    bool bJson = false;
};

// Checks rule documents and prints a line per finding, or all of them as JSON. UnreadableInput when a file
// could not be read, otherwise Findings when something was found or a file has no rule to check. Every file
// is checked, whatever is wrong with the others.
ExitCode CheckDocuments(const RuleModule& module, const CheckOptions& options);
