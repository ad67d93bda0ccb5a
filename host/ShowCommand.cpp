#include "Commands.h"
#include "Console.h"
#include "DocumentCheck.h"
#include "DocumentOutput.h"
#include "FileArguments.h"
#include "RuleJson.h"
#include "RuleTable.h"
#include "Text.h"

#include <memory>

namespace {

struct ShowOptions {
    std::string file;
    bool isJson = false;
};

void PrintTables(const RuleDocument& document) {
    Print(DocumentHeading(document.GetPath(), document));
    for (const RuleDocument::Entry& entry : document.GetEntries())
        if (entry.rule) Print("\n" + FormatRule(*entry.rule));
}

// Findings when the document holds something that the module ignores.
ExitCode Show(const RuleModule& module, const ShowOptions& options) {
    const RuleDocument document = ReadDocument(module, options.file);
    const std::vector<Finding> ignored = FindIgnoredContent(document);
    if (options.isJson)
        PrintJson(DocumentToJson(options.file, document, ignored));
    else
        PrintTables(document);
    return PrintFindings(document, ignored) ? ExitCode::Findings : ExitCode::Done;
}

}  // namespace

void AddShow(CommandLine& commandLine) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App& command =
        commandLine.Add("show", "Print the rules, parameters and constraints of a rule document",
                        {"mfxhost show rules.xml", "mfxhost show rules.xml --json"},
                        [options](const RuleModule& module) { return Show(module, *options); });
    AddFile(command, "FILE", options->file, "Rule document to read; - for standard input")->required();
    command.add_flag("--json", options->isJson, "Print them as JSON");
}
