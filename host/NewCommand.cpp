#include "Commands.h"
#include "Console.h"
#include "DocumentFile.h"
#include "DocumentOutput.h"
#include "FileArguments.h"
#include "Text.h"

#include <memory>

namespace {

struct NewOptions {
    std::string file;
    bool replaces = false;
};

ExitCode WriteDefaults(const RuleModule& module, const NewOptions& options) {
    const CString path = FromUtf8(options.file);
    if (options.file != kStandardStream && !options.replaces && FileExists(path) && !IsFolder(path))
        throw CommandError(ExitCode::WrongUsage, options.file + " exists already; --force replaces it");
    RuleDocument document(module);
    for (RulePtr& rule : module.CreateAllRules()) document.Append(std::move(rule));
    SaveDocument(document, options.file);
    PrintOutcome(options.file, DocumentHeading(path, document));
    return ExitCode::Done;
}

}  // namespace

void AddNew(CommandLine& commandLine) {
    const auto options = std::make_shared<NewOptions>();
    CLI::App& command = commandLine.Add(
        "new", "Write a rule document with every rule as it is by default", {"mfxhost new rules.xml"},
        [options](const RuleModule& module) { return WriteDefaults(module, *options); });
    AddFile(command, "FILE", options->file, "Rule document to write; - for standard output")->required();
    command.add_flag("--force", options->replaces, "Replace an existing file");
}
