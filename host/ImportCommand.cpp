#include "Commands.h"
#include "DraftSheetTexts.h"
#include "EditedDocument.h"
#include "RuleParameters.h"
#include "Text.h"
#include "WorkbookInput.h"

#include <memory>

namespace {

struct ImportOptions : EditOptions {
    std::string book;
    int ruleId = 0;
};

void ImportDraftTable(DocumentEdit& edit, const std::string& book) {
    WorkbookSheet description;
    const DraftSheet sheet =
        ReadDraftSheet(ReadWorkbookTable(FromUtf8(book), kDraftSheetColumns, description));
    if (sheet.fault != DraftSheetFault::None)
        throw EditError(book + ": " + ToUtf8(DraftSheetFaultText(sheet)));
    edit.SetDraftBands(std::to_string(kDraftAngleRuleId), sheet.table.bands);
}

ExitCode Import(const RuleModule& module, const ImportOptions& options) {
    if (options.ruleId != kDraftAngleRuleId)
        throw CommandError(ExitCode::WrongUsage, "import: only the table of rule " +
                                                     std::to_string(kDraftAngleRuleId) + " can be imported");
    return EditValues(module, options, [&](DocumentEdit& edit) { ImportDraftTable(edit, options.book); });
}

}  // namespace

void AddImport(CommandLine& commandLine) {
    const auto options = std::make_shared<ImportOptions>();
    CLI::App& command =
        commandLine.Add("import", "Fill the table of a rule from a workbook, as its dialog does",
                        {"mfxhost import rules.xml angles.xlsx --rule 19040",
                         "mfxhost import rules.xml angles.xlsx --rule 19040 --dry-run"},
                        [options](const RuleModule& module) { return Import(module, *options); });
    AddEditOptions(command, *options);
    AddFile(command, "BOOK", options->book, "Workbook; its first row reads H1, H2, A1, A2, A3")->required();
    command.add_option("--rule", options->ruleId, "Id of the rule: 19040")->type_name("ID")->required();
}
