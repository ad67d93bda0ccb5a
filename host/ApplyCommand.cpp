#include "Commands.h"
#include "Console.h"
#include "DifferenceOutput.h"
#include "EditedDocument.h"
#include "FileArguments.h"
#include "PatchJson.h"
#include "Text.h"

#include <memory>

namespace {

struct ApplyOptions : EditOptions {
    std::string patch;
    ConflictChoice choice = ConflictChoice::None;
};

const std::map<std::string, ConflictChoice> kChoices = {{"patch", ConflictChoice::Patch},
                                                        {"file", ConflictChoice::Document}};

void Apply(RuleDocument& document, const ApplyOptions& options) {
    const Patch patch = ParsePatch(options.patch, ReadBytes(options.patch));
    const std::vector<Conflict> conflicts = ApplyPatch(document, patch, options.choice);
    PrintConflicts(conflicts, {"expected", "found", "wanted"});
    if (!conflicts.empty() && options.choice == ConflictChoice::None)
        throw EditError(options.input + ": " + Count(conflicts.size(), "conflict") +
                        "; --take patch sets these values, --take file leaves them");
}

}  // namespace

void AddApply(CommandLine& commandLine) {
    const auto options = std::make_shared<ApplyOptions>();
    CLI::App& command = commandLine.Add(
        "apply", "Make the changes in a rule document that diff --json has printed of two others",
        {"mfxhost diff old.xml new.xml --json > patch.json", "mfxhost apply rules.xml patch.json --dry-run",
         "mfxhost apply rules.xml patch.json --take file"},
        [options](const RuleModule& module) {
            return EditDocument(module, *options, [&](RuleDocument& document) { Apply(document, *options); });
        });
    AddEditOptions(command, *options);
    AddFile(command, "PATCH", options->patch, "What diff A B --json printed; - for standard input")
        ->required();
    command
        .add_option("--take", options->choice,
                    "What to do with values that are neither what the patch expects nor what it sets: patch "
                    "sets them, file leaves them and applies the rest. Without it nothing is saved then")
        ->type_name("patch|file")
        ->transform(CLI::CheckedTransformer(kChoices).description(""));
}
