#pragma once

#include "HostError.h"
#include "RuleModule.h"

#include <afx.h>

struct DiffOptions {
    CString strLeft;
    CString strRight;        // not used with bDefaults
    bool bDefaults = false;  // compares strLeft with its rules as they are by default
    bool bJson = false;
};

// Prints where two rule documents differ, value by value in the units of the left one. Findings when they
// differ; what the module passes over is compared as text, and named for each of them.
ExitCode DiffDocuments(const RuleModule& module, const DiffOptions& options);
