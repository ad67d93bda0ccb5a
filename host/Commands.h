// The commands of the program. Each returns how the program ends; failures are thrown as HostError.
#pragma once

#include "HostError.h"
#include "RuleModule.h"

#include <afx.h>

#include <optional>
#include <string>

// Prints the module's name and summary and its rules.
ExitCode ListRules(const RuleModule& module);

// Writes a rule document with a fresh instance of every rule; an existing file is left alone unless bForce.
ExitCode NewDocument(const RuleModule& module, const CString& strPath, bool bForce);

// Prints a rule document as tables or as JSON. Findings when it holds something that the module passes over.
ExitCode ShowDocument(const RuleModule& module, const CString& strPath, bool bJson);

struct ConvertOptions {
    CString strInput;
    CString strOutput;                      // empty: the input is replaced
    std::optional<std::string> lengthUnit;  // as typed; nothing: the document's own
    std::optional<std::string> angleUnit;
};

// Converts a rule document to other units. Refuses, with Findings, a document of which it does not understand
// everything: what it left alone would be taken for values in the new units.
ExitCode ConvertDocument(const RuleModule& module, const ConvertOptions& options);

struct ConfigureOptions {
    CString strInput;
    CString strOutput;  // empty: the input is replaced
    int nRuleId = 0;
};

// Opens the dialog of the document's first rule with that id, and saves the document when the rule changed.
// Refuses, with Findings, a rule that was not read completely: its dialog would drop the rest.
ExitCode ConfigureDocument(const RuleModule& module, const ConfigureOptions& options);
