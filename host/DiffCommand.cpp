#include "Commands.h"
#include "Comparison.h"
#include "Console.h"
#include "DocumentCheck.h"
#include "DocumentFiles.h"
#include "DocumentOutput.h"
#include "Text.h"
#include "TextTable.h"

#include <algorithm>
#include <memory>

namespace {

struct DiffOptions {
    std::string left;
    std::string right;          // empty with withDefaults
    bool withDefaults = false;  // compares the defaults of the left document's rules with it
    bool isJson = false;
};

// The two sides as the output names them, and where they differ.
struct DiffResult {
    std::string left, right;
    std::vector<Difference> differences;
};

std::string ValueName(const Difference& difference) {
    return (difference.constraint.empty() ? "" : difference.constraint + ": ") + difference.label +
           (difference.row ? ", row " + std::to_string(difference.row) : "");
}

void PrintTable(const DiffResult& result) {
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Right, Align::Right});
    table.Add({"rule", "value", result.left, result.right});
    const auto format = [](const std::optional<RuleValue>& value) {
        return value ? FormatRuleValue(*value) : "(none)";
    };
    for (const Difference& difference : result.differences)
        table.Add(
            {difference.rule, ValueName(difference), format(difference.left), format(difference.right)});
    if (!result.differences.empty()) Print(table.Format(0));
}

Json ValueToJson(const std::optional<RuleValue>& value) {
    if (!value) return nullptr;
    if (const double* number = std::get_if<double>(&value->content)) return *number;
    return FormatRuleValue(*value);
}

// A word has no unit, but the number beside it may.
std::string UnitOf(const Difference& difference) {
    for (const std::optional<RuleValue>* value : {&difference.left, &difference.right})
        if (*value && !(*value)->unit.empty()) return (*value)->unit;
    return {};
}

Json DifferenceToJson(const Difference& difference) {
    Json json{{"rule", difference.rule},
              {"ruleId", difference.ruleId ? Json(difference.ruleId) : Json(nullptr)}};
    json["key"] = difference.key;
    json["parameter"] = difference.paramId ? Json(difference.paramId) : Json(nullptr);
    json["constraint"] = TextOrNull(difference.constraint);
    json["value"] = difference.label;
    json["row"] = difference.row ? Json(difference.row) : Json(nullptr);
    json["unit"] = TextOrNull(UnitOf(difference));
    json["left"] = ValueToJson(difference.left);
    json["right"] = ValueToJson(difference.right);
    return json;
}

void PrintAsJson(const DiffResult& result) {
    constexpr int kJsonVersion = 2;
    PrintJson({{"version", kJsonVersion},
               {"left", result.left},
               {"right", result.right},
               {"differences", ToArray(result.differences, DifferenceToJson)}});
}

// Prints the ignored content of one side; returns the texts without line numbers.
std::vector<std::string> PrintIgnored(const RuleDocument& document) {
    const std::vector<Finding> ignored = FindIgnoredContent(document);
    PrintFindings(document, ignored);
    std::vector<std::string> texts;
    std::ranges::transform(ignored, std::back_inserter(texts), DescribeFinding);
    return texts;
}

// Prints the differences; whether there are any.
bool Report(const DiffResult& result, bool isJson) {
    if (isJson)
        PrintAsJson(result);
    else
        PrintTable(result);
    return !result.differences.empty();
}

bool DiffWithDefaults(const RuleModule& module, const DiffOptions& options) {
    const RuleDocument document = ReadDocument(module, options.left);
    const bool differs = Report({"default", options.left, CompareWithDefaults(document)}, options.isJson);
    return !PrintIgnored(document).empty() || differs;
}

bool DiffDocuments(const RuleModule& module, const DiffOptions& options) {
    const RuleDocument right = ReadDocument(module, options.right);
    const RuleDocument left = ReadDocument(module, options.left);
    const bool differs = Report({options.left, options.right, CompareDocuments(left, right)}, options.isJson);
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
    command.add_flag("--json", options->isJson, "Print the differences as JSON");
}
