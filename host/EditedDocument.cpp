#include "EditedDocument.h"

#include "DifferenceOutput.h"
#include "FileArguments.h"
#include "Text.h"

void AddEditOptions(CLI::App& command, EditOptions& options) {
    AddInputAndOutput(command, options);
    command.add_flag("--dry-run", options.isDryRun,
                     "Print what would change, as diff does, and save nothing");
}

ExitCode EditDocument(const RuleModule& module, const EditOptions& options,
                      const std::function<void(RuleDocument&)>& change) {
    RuleDocument document = ReadDocument(module, options.input);
    const UnitPair units = document.GetUnits();
    const std::vector<RuleContent> before = ContentsOf(document, units);
    change(document);
    const std::vector<Difference> differences = CompareContents(before, ContentsOf(document, units));
    if (options.isDryRun) {
        PrintDifferences(differences, options.input, "changed");
        return ExitCode::Done;
    }
    SaveDocument(document, options.Target());
    PrintOutcome(options.Target(),
                 options.Target() + ": " + Count(differences.size(), "difference") + " from before\n");
    return ExitCode::Done;
}

ExitCode EditValues(const RuleModule& module, const EditOptions& options,
                    const std::function<void(DocumentEdit&)>& change) {
    return EditDocument(module, options, [&](RuleDocument& document) {
        DocumentEdit edit(document);
        change(edit);
        edit.Finish();
    });
}
