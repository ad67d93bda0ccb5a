#include "EditedDocument.h"

#include "DifferenceOutput.h"
#include "DocumentFiles.h"
#include "Text.h"

void AddEditOptions(CLI::App& command, EditOptions& options) {
    AddInputAndOutput(command, options.input, options.output);
    command.add_flag("--dry-run", options.isDryRun,
                     "Print what would change, as diff does, and save nothing");
}

ExitCode EditDocument(const RuleModule& module, const EditOptions& options,
                      const std::function<void(RuleDocument&)>& change) {
    RuleDocument document = ReadDocument(module, options.input);
    const RuleDocument before(module, document.GetPath(), document.ToUtf8());
    change(document);
    const std::vector<Difference> differences = CompareDocuments(before, document);
    if (options.isDryRun) {
        PrintDifferences(differences, options.input, "changed");
        return ExitCode::Done;
    }
    const std::string& output = options.output.empty() ? options.input : options.output;
    SaveDocument(document, output);
    PrintOutcome(output, output + ": " + Count(differences.size(), "difference") + " from before\n");
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
