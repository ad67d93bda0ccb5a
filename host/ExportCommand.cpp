#include "Commands.h"
#include "DocumentCheck.h"
#include "DocumentOutput.h"
#include "EditError.h"
#include "FileArguments.h"
#include "RuleArgument.h"
#include "TableInput.h"
#include "Text.h"
#include "WorkbookWriter.h"

#include <memory>

namespace {

struct ExportOptions {
    std::string input;
    std::string ruleKey;
    std::string table;
    bool hasByteOrderMark = false;
};

ExportedTable MakeTable(const CMfxRule& rule) {
    try {
        return ExportTable(rule);
    } catch (const EditError& error) {
        throw CommandError(ExitCode::Findings, error.what());
    }
}

ExitCode Export(const RuleModule& module, const ExportOptions& options) {
    const TableKind kind = KindOfTable(options.table);
    if (kind == TableKind::OtherWorkbook)
        throw CommandError(ExitCode::WrongUsage,
                           "export: " + options.table + " is not a name that ends in .csv or .xlsx");
    RefuseSameFile(options.table, options.input, "rule document");
    const RuleDocument document = ReadDocument(module, options.input);
    const RuleDocument::Entry& entry = RequireRule(document, options.ruleKey);
    const bool isPartIgnored = PrintFindings(document, FindIgnoredContent(document, entry));
    const ExportedTable table = MakeTable(*entry.rule);
    const std::string mark = options.hasByteOrderMark ? "\xEF\xBB\xBF" : "";
    WriteBytes(options.table, kind == TableKind::Csv ? mark + FormatCsv(table) : FormatWorkbook(table));
    PrintOutcome(options.table, options.table + ": " + Count(table.lines.size(), "line") + "\n");
    return isPartIgnored ? ExitCode::Findings : ExitCode::Done;
}

}  // namespace

void AddExport(CommandLine& commandLine) {
    const auto options = std::make_shared<ExportOptions>();
    CLI::App& command =
        commandLine.Add("export", "Write the table of a rule as comma-separated values or as a workbook",
                        {"mfxhost export rules.xml --rule 19020 -o groups.xlsx",
                         "mfxhost export rules.xml --rule 19010 -o - | sort"},
                        [options](const RuleModule& module) { return Export(module, *options); });
    AddFile(command, "FILE", options->input, "Rule document to read; - for standard input")->required();
    AddRuleOption(command, options->ruleKey);
    AddFile(command, "-o,--output", options->table,
            "File to write, .csv (RFC 4180, UTF-8) or .xlsx; replaces an existing one; - writes "
            "comma-separated values to standard output")
        ->type_name("TABLE")
        ->required();
    command.add_flag("--mark", options->hasByteOrderMark,
                     "Begin a .csv with a byte-order mark, by which spreadsheet programs know UTF-8");
}
