#include "Commands.h"
#include "EditedDocument.h"
#include "RuleArgument.h"
#include "TableImport.h"
#include "TableInput.h"

#include <memory>

namespace {

struct ImportOptions : EditOptions {
    std::string book;
    std::string ruleKey;
};

ExitCode Import(const RuleModule& module, const ImportOptions& options) {
    return EditDocument(module, options, [&](RuleDocument& document) {
        const int ruleId = RequireRule(document, options.ruleKey).rule->GetRuleId();
        DocumentEdit edit(document);
        ImportTable(edit, options.ruleKey, ReadTable(options.book, SheetColumnsOf(ruleId)));
        edit.Finish();
    });
}

}  // namespace

void AddImport(CommandLine& commandLine) {
    const auto options = std::make_shared<ImportOptions>();
    CLI::App& command = commandLine.Add(
        "import",
        "Replace the table of a rule by one from a file; what a dialog would refuse is refused here",
        {"mfxhost import rules.xml angles.xlsx --rule 19040",
         "mfxhost import rules.xml groups.csv --rule 19020 --dry-run"},
        [options](const RuleModule& module) { return Import(module, *options); });
    AddEditOptions(command, *options);
    AddFile(
        command, "BOOK", options->book,
        "Workbook (.xlsx, .xls) or .csv with the headings that export writes; numbers are in the units "
        "that stand in the headings, or else in those of the document. Materials and groups that it lacks "
        "are removed. - for comma-separated values from standard input")
        ->required();
    AddRuleOption(command, options->ruleKey);
}
