#include "Commands.h"
#include "Console.h"
#include "DifferenceOutput.h"
#include "EditError.h"
#include "FileArguments.h"
#include "Text.h"

#include <memory>

namespace {

struct MergeOptions {
    std::string base, mine, theirs, output;
    MergeChoice choice = MergeChoice::None;
};

const std::map<std::string, MergeChoice> kChoices = {{"mine", MergeChoice::Mine},
                                                     {"theirs", MergeChoice::Theirs}};

ExitCode Merge(const RuleModule& module, const MergeOptions& options) {
    const RuleDocument base = ReadDocument(module, options.base);
    RuleDocument mine = ReadDocument(module, options.mine);
    RuleDocument theirs = ReadDocument(module, options.theirs);
    const UnitPair units = mine.GetUnits();
    const std::vector<RuleContent> before = ContentsOf(mine, units);
    const MergeResult result = MergeDocuments(base, mine, theirs, options.choice);
    PrintConflicts(result.conflicts, {"base", "mine", "theirs"});
    if (!result.conflicts.empty() && options.choice == MergeChoice::None)
        throw EditError(Count(result.conflicts.size(), "conflict") +
                        "; --take mine or --take theirs decides all of them");
    const std::size_t count = CompareContents(before, ContentsOf(*result.merged, units)).size();
    SaveDocument(*result.merged, options.output);
    PrintOutcome(options.output,
                 options.output + ": " + Count(count, "difference") + " from " + options.mine + "\n");
    return ExitCode::Done;
}

}  // namespace

void AddMerge(CommandLine& commandLine) {
    const auto options = std::make_shared<MergeOptions>();
    CLI::App& command =
        commandLine.Add("merge", "Merge what two people changed in copies of a rule document",
                        {"mfxhost merge base.xml mine.xml theirs.xml -o merged.xml",
                         "mfxhost merge base.xml mine.xml theirs.xml -o merged.xml --take theirs"},
                        [options](const RuleModule& module) { return Merge(module, *options); });
    AddFile(command, "BASE", options->base, "Rule document that both have changed")->required();
    AddFile(command, "MINE", options->mine, "Rule document whose units the result has")->required();
    AddFile(command, "THEIRS", options->theirs, "Rule document whose changes are added")->required();
    AddFile(command, "-o,--output", options->output,
            "File to write; replaces an existing one, which may be MINE; - for standard output")
        ->type_name("FILE")
        ->required();
    command
        .add_option(
            "--take", options->choice,
            "Whose values to take where both have changed the same; theirs gives the result the units "
            "of THEIRS. Without it nothing is written then")
        ->type_name("mine|theirs")
        ->transform(CLI::CheckedTransformer(kChoices).description(""));
}
