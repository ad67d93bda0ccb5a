// What the commands have in common that change values of a document.
#pragma once

#include "CommandLine.h"
#include "DocumentEdit.h"
#include "ExitCode.h"

#include <functional>
#include <string>

struct EditOptions : InputAndOutput {
    bool isDryRun = false;
};

// Adds the options to a command.
void AddEditOptions(CLI::App& command, EditOptions& options);

// Changes the document, and saves it or prints what would change. Nothing is saved when the change throws.
ExitCode EditDocument(const RuleModule& module, const EditOptions& options,
                      const std::function<void(RuleDocument&)>& change);

// The same by values, with the checks of the rules' dialogs.
ExitCode EditValues(const RuleModule& module, const EditOptions& options,
                    const std::function<void(DocumentEdit&)>& change);
