#include "CastingTable.h"
#include "Commands.h"
#include "Console.h"
#include "DocumentCheck.h"
#include "DocumentOutput.h"
#include "EditError.h"
#include "FileArguments.h"
#include "LimitsOutput.h"
#include "TableInput.h"
#include "Text.h"
#include "TypedValue.h"

#include <algorithm>
#include <memory>

namespace {

struct LimitsOptions {
    std::string input;
    std::string material, group;  // empty: not given
    std::string size, weight;
    std::string castings;  // a table of them
    std::string output;    // empty: standard output
    bool isJson = false;
};

// Nothing for an option that is not given.
std::optional<double> ParseOption(const char* name, const std::string& text, Quantity quantity,
                                  const RuleUnits& units) {
    if (text.empty()) return std::nullopt;
    try {
        return StoredNumber(ParseTypedValue(text, {.quantity = quantity, .kind = ValueKind::Number}, units));
    } catch (const EditError& error) {
        throw CommandError(ExitCode::WrongUsage, std::string(name) + ": " + error.what());
    }
}

ExitCode AnswerCasting(const CastingLimits& limits, const LimitsOptions& options) {
    const Casting casting{options.material, options.group,
                          ParseOption("--size", options.size, Quantity::Length, limits.GetUnits()),
                          ParseOption("--weight", options.weight, Quantity::Mass, limits.GetUnits())};
    const std::vector<RuleLimits> found = limits.Find(casting);
    if (options.isJson)
        PrintLimitsAsJson(limits, casting, found);
    else
        Print(FormatLimits(found));
    const auto isNotFound = [](const RuleLimits& rule) {
        return rule.reason.answer == LimitAnswer::NotFound;
    };
    return std::ranges::any_of(found, isNotFound) ? ExitCode::Findings : ExitCode::Done;
}

ExitCode AnswerTable(const CastingLimits& limits, const LimitsOptions& options) {
    CastingTable table;
    try {
        table = AnswerCastings(limits, ReadCsv(options.castings));
    } catch (const EditError& error) {
        throw CommandError(ExitCode::Findings, error.what());
    }
    const std::string& output = options.output.empty() ? std::string(kStandardStream) : options.output;
    WriteBytes(output, table.csv);
    const std::string problems =
        table.problemCount ? ", " + std::to_string(table.problemCount) + " with a problem" : "";
    PrintOutcome(output, options.castings + ": " + Count(table.castingCount, "casting") + problems + "\n");
    return table.problemCount ? ExitCode::Findings : ExitCode::Done;
}

void RefuseWrongOptions(const LimitsOptions& options) {
    const bool isTable = !options.castings.empty();
    const bool isCasting =
        options.isJson || !(options.material + options.group + options.size + options.weight).empty();
    if (isTable && isCasting)
        throw CommandError(ExitCode::WrongUsage, "limits: --csv has the castings; only -o goes with it");
    if (!isTable && !options.output.empty())
        throw CommandError(ExitCode::WrongUsage, "limits: -o is for the table of --csv");
    if (!options.output.empty()) RefuseSameFile(options.output, options.input, "rule document");
}

ExitCode PrintLimits(const RuleModule& module, const LimitsOptions& options) {
    RefuseWrongOptions(options);
    const RuleDocument document = ReadDocument(module, options.input);
    const bool isPartIgnored = PrintFindings(document, FindIgnoredContent(document));
    const CastingLimits limits(document);
    const ExitCode code =
        options.castings.empty() ? AnswerCasting(limits, options) : AnswerTable(limits, options);
    return isPartIgnored ? ExitCode::Findings : code;
}

// Adds an option for a text. An empty one is a mistake, not a missing option.
void AddText(CLI::App& command, const char* name, std::string& text, const char* type,
             const char* description) {
    const auto findFault = [](const std::string& given) { return given.empty() ? "the value is empty" : ""; };
    command.add_option(name, text, description)->type_name(type)->check(CLI::Validator(findFault, ""));
}

void AddCastingOptions(CLI::App& command, LimitsOptions& options) {
    AddText(command, "--material", options.material, "NAME",
            "Material of rule 19010, or group of rule 19020, in any letter case");
    AddText(command, "--group", options.group, "NAME", "Group of rule 19020 where it has another name");
    AddText(command, "--size", options.size, "SIZE",
            "Size of the casting: 300mm, \"12 in\"; in the document's unit without one");
    AddText(command, "--weight", options.weight, "WEIGHT", "Weight of the casting: \"2.5 kg\", 5lb");
}

}  // namespace

void AddLimits(CommandLine& commandLine) {
    const auto options = std::make_shared<LimitsOptions>();
    CLI::App& command =
        commandLine.Add("limits",
                        "Print which limits a casting meets by a rule document, and why. A rule that needs "
                        "an option which is missing says so. A band includes both its bounds, and the first "
                        "band that holds the casting decides: a size on the joint of two bands is in the one "
                        "that ends there.",
                        {"mfxhost limits rules.xml --material steel --size 300mm --weight \"2.5 kg\"",
                         "mfxhost limits rules.xml --csv castings.csv -o answered.csv"},
                        [options](const RuleModule& module) { return PrintLimits(module, *options); });
    AddFile(command, "FILE", options->input, "Rule document to read; - for standard input")->required();
    AddCastingOptions(command, *options);
    command.add_flag("--json", options->isJson, "Print them as JSON");
    AddFile(
        command, "--csv", options->castings,
        "Table of castings instead, with the columns name, material, group, size and weight; it is printed "
        "with the limits added, and what could not be answered; - for standard input")
        ->type_name("CASTINGS");
    AddFile(command, "-o,--output", options->output, "File to write that table to; replaces an existing one")
        ->type_name("OUT");
}
