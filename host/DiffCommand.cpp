#include "Commands.h"
#include "Console.h"
#include "DifferenceOutput.h"
#include "DocumentCheck.h"
#include "DocumentOutput.h"
#include "FileArguments.h"
#include "PatchJson.h"
#include "Text.h"

#include <algorithm>
#include <memory>

namespace {

struct DiffOptions {
    std::string left;
    std::string right;          // empty with withDefaults
    bool withDefaults = false;  // compares the defaults of the left document's rules with it
    bool isJson = false;
};

// Prints the ignored content of one side; returns the texts without line numbers.
std::vector<std::string> PrintIgnored(const RuleDocument& document) {
    const std::vector<Finding> ignored = FindIgnoredContent(document);
    PrintFindings(document, ignored);
    std::vector<std::string> texts;
    std::ranges::transform(ignored, std::back_inserter(texts), DescribeFinding);
    return texts;
}

// Whether there are differences.
bool PrintPatch(const Patch& patch, const std::string& left, const std::string& right, bool isJson) {
    if (isJson)
        Print(FormatPatch(patch, left, right));
    else
        PrintDifferences(patch.differences, left, right);
    return !patch.differences.empty();
}

bool DiffWithDefaults(const RuleModule& module, const DiffOptions& options) {
    const RuleDocument document = ReadDocument(module, options.left);
    const bool differs = PrintPatch(MakePatchFromDefaults(document), "default", options.left, options.isJson);
    return !PrintIgnored(document).empty() || differs;
}

bool DiffDocuments(const RuleModule& module, const DiffOptions& options) {
    const RuleDocument right = ReadDocument(module, options.right);
    const RuleDocument left = ReadDocument(module, options.left);
    const bool differs = PrintPatch(MakePatch(left, right), options.left, options.right, options.isJson);
    const std::vector<std::string> leftIgnored = PrintIgnored(left), rightIgnored = PrintIgnored(right);
    return leftIgnored != rightIgnored || differs;
}

ExitCode Diff(const RuleModule& module, const DiffOptions& options) {
    if (options.right.empty() && !options.withDefaults)
        throw CommandError(ExitCode::WrongUsage, "diff: give a second file, or --defaults");
    const bool differs =
        options.withDefaults ? DiffWithDefaults(module, options) : DiffDocuments(module, options);
    return differs ? ExitCode::Findings : ExitCode::Done;
}

}  // namespace

void AddDiff(CommandLine& commandLine) {
    const auto options = std::make_shared<DiffOptions>();
    CLI::App& command =
        commandLine.Add("diff", "Print where two rule documents differ",
                        {"mfxhost diff old.xml new.xml", "mfxhost diff rules.xml --defaults"},
                        [options](const RuleModule& module) { return Diff(module, *options); });
    AddFile(command, "A", options->left,
            "Rule document; its units are those of the output; - for standard input")
        ->required();
    CLI::Option* const right =
        AddFile(command, "B", options->right, "Rule document to compare with; - for standard input");
    command.add_flag("--defaults", options->withDefaults, "Compare A with its rules as they are by default")
        ->excludes(right);
    command.add_flag("--json", options->isJson, "Print the differences as JSON, which is a patch for apply");
}
