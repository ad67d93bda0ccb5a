#include "EditedDocument.h"

#include "DifferenceOutput.h"
#include "DocumentCheck.h"
#include "DocumentFiles.h"
#include "DocumentOutput.h"
#include "Text.h"

void AddEditOptions(CLI::App& command, EditOptions& options) {
    AddInputAndOutput(command, options.input, options.output);
    command.add_flag("--dry-run", options.isDryRun,
                     "Print what would change, as diff does, and save nothing");
}

ExitCode EditDocument(const RuleModule& module, const EditOptions& options,
                      const std::function<void(DocumentEdit&, const RuleDocument&)>& change) {
    RuleDocument document = ReadDocument(module, options.input);
    // Saving a rule would drop what the module ignores of it.
    if (PrintFindings(document, FindIgnoredContent(document)))
        throw EditError(options.input + " has content that the module ignores");
    const RuleDocument before(module, document.GetPath(), document.ToUtf8());
    DocumentEdit edit(document);
    change(edit, document);
    edit.Finish();
    const std::vector<Difference> differences = CompareDocuments(before, document);
    if (options.isDryRun) {
        PrintDifferences({options.input, "changed", differences}, false);
        return ExitCode::Done;
    }
    const std::string& output = options.output.empty() ? options.input : options.output;
    SaveDocument(document, output);
    PrintOutcome(output, output + ": " + Count(differences.size(), "difference") + " from before\n");
    return ExitCode::Done;
}
