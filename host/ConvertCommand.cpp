#include "Commands.h"
#include "Console.h"
#include "Conversion.h"
#include "DocumentCheck.h"
#include "DocumentOutput.h"
#include "FileArguments.h"
#include "Text.h"
#include "Units.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace {

struct ConvertOptions : InputAndOutput {
    std::optional<std::string> lengthUnit;  // as typed; nothing: the document's own
    std::optional<std::string> angleUnit;
    bool allLosses = false;
};

int UnitOrThrow(std::optional<int> unit, const std::string& option, const std::string& name,
                const std::string& known) {
    if (!unit)
        throw CommandError(
            ExitCode::WrongUsage,
            option + ": \"" + name + "\" is not a unit that a rule document can be in; those are " + known);
    return *unit;
}

UnitPair TargetUnits(const UnitPair& own, const ConvertOptions& options) {
    UnitPair units = own;
    if (options.lengthUnit)
        units.m_nLengthUnit = UnitOrThrow(FindLengthUnit(*options.lengthUnit), "--length",
                                          *options.lengthUnit, LengthUnitSymbols());
    if (options.angleUnit)
        units.m_nAngleUnit =
            UnitOrThrow(FindAngleUnit(*options.angleUnit), "--angle", *options.angleUnit, AngleUnitSymbols());
    return units;
}

// "Variable Draft Angle: parameter 29183, row 2, angle 1: "
std::string ValueName(const ValueLoss& loss) {
    const RuleValue& value = loss.before;
    return loss.rule + ": parameter " + std::to_string(value.location.paramId) + ", " +
           (value.constraint.empty() ? "" : value.constraint + ": ") +
           (value.row ? "row " + std::to_string(value.row) + ", " : "") + value.label + ": ";
}

void PrintLoss(const CString& path, const ValueLoss& loss, const std::string& sentence) {
    PrintError(LinePrefix(path, loss.line) + Escaped(ValueName(loss) + sentence) + "\n");
}

// "3 deg became 0.05236 rad instead of 0.05235987756 rad"
std::string LossSentence(const ValueLoss& loss) {
    if (!std::holds_alternative<double>(loss.before.content))
        return "an empty cell became " + FormatRuleValue(loss.after, kComparedDigits);
    return FormatRuleValue(loss.before, kComparedDigits) + " became " +
           FormatRuleValue(loss.after, kComparedDigits) + " instead of " +
           FormatRuleValue(loss.exact, kComparedDigits);
}

void PrintLosses(const CString& path, const std::vector<ValueLoss>& losses, bool all) {
    constexpr std::size_t kMostLines = 10;
    const std::size_t lines = all ? losses.size() : std::min(losses.size(), kMostLines);
    for (std::size_t i = 0; i < lines; ++i) PrintLoss(path, losses[i], LossSentence(losses[i]));
    if (lines < losses.size())
        PrintError("and " + std::to_string(losses.size() - lines) + " more, with smaller losses\n");
}

void PrintRefusal(const RuleDocument& document, const Conversion& conversion) {
    PrintFindings(document, conversion.ignored);
    for (const ValueLoss& loss : conversion.tooLarge)
        PrintLoss(
            document.GetPath(), loss,
            FormatRuleValue(loss.before, kComparedDigits) + " is too large a number in " + loss.exact.unit);
    PrintError("mfxhost: " + ToUtf8(document.GetPath()) + " was not converted\n");
}

ExitCode Convert(const RuleModule& module, const ConvertOptions& options) {
    if (!options.lengthUnit && !options.angleUnit)
        throw CommandError(ExitCode::WrongUsage, "convert: give the new units by --length, --angle or both");
    RuleDocument document = ReadDocument(module, options.input);
    const UnitPair from = document.GetUnits(), to = TargetUnits(from, options);
    const bool isDoneAlready = from == to && options.output.empty();
    const Conversion conversion =
        isDoneAlready ? Conversion{.ignored = FindIgnoredContent(document)} : ConvertDocument(document, to);
    if (!conversion.IsDone()) {
        PrintRefusal(document, conversion);
        return ExitCode::Findings;
    }
    if (isDoneAlready) {
        if (options.input == kStandardStream) SaveDocument(document, options.input);
        PrintOutcome(options.input, options.input + " is in " + UnitWords(to) + " already\n");
        return ExitCode::Done;
    }
    const std::string& output = options.Target();
    SaveDocument(document, output);
    PrintOutcome(output, output + ": " + Count(document.GetEntries().size(), "rule") + " converted from " +
                             UnitWords(from) + " to " + UnitWords(to) + "\n");
    PrintLosses(FromUtf8(options.input), conversion.losses, options.allLosses);
    return ExitCode::Done;
}

}  // namespace

void AddConvert(CommandLine& commandLine) {
    const auto options = std::make_shared<ConvertOptions>();
    CLI::App& command =
        commandLine.Add("convert",
                        "Convert a rule document to other units; names on standard error the values that are "
                        "not kept exactly",
                        {"mfxhost convert rules.xml --length in",
                         "mfxhost convert rules.xml --length in --angle rad -o inches.xml"},
                        [options](const RuleModule& module) { return Convert(module, *options); });
    command.add_option("--length", options->lengthUnit, "New length unit: " + LengthUnitSymbols())
        ->type_name("UNIT");
    command.add_option("--angle", options->angleUnit, "New angle unit: " + AngleUnitSymbols())
        ->type_name("UNIT");
    command.add_flag("--losses", options->allLosses,
                     "Name every value that is not kept exactly, not only the ten with the largest losses");
    AddInputAndOutput(command, *options);
}
