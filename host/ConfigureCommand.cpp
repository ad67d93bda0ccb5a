#include "Commands.h"
#include "Console.h"
#include "DocumentCheck.h"
#include "DocumentFile.h"
#include "DocumentOutput.h"
#include "RuleParameters.h"
#include "Text.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace {

struct ConfigureOptions {
    std::string input;
    std::string output;  // empty: the input is replaced
    int ruleId = 0;
};

const RuleDocument::Entry& RequireRule(const RuleDocument& document, int ruleId) {
    const RuleDocument::Entry* entry = document.FindRule(ruleId);
    if (!entry)
        throw CommandError(ExitCode::WrongUsage, ToUtf8(document.GetPath()) + " has no rule " +
                                                     std::to_string(ruleId) + "; mfxhost show tells the ids");
    return *entry;
}

void RequireDisplay() {
    const HWND hWindow =
        CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    if (!hWindow)
        throw CommandError(ExitCode::NotPossible, "there is no display on which a dialog can be shown");
    DestroyWindow(hWindow);
}

ExitCode Configure(const RuleModule& module, const ConfigureOptions& options) {
    RuleDocument document(module, FromUtf8(options.input), PrintReadingProgress);
    const RuleDocument::Entry& entry = RequireRule(document, options.ruleId);
    // The dialog would drop what the module ignores of the rule.
    if (PrintFindings(document, FindIgnoredContent(document, entry))) {
        PrintError("mfxhost: " + options.input + " was not changed\n");
        return ExitCode::Findings;
    }
    const std::string& output = options.output.empty() ? options.input : options.output;
    ThrowIfUnwritable(FromUtf8(output));  // before anything is edited
    RequireDisplay();
    const std::string rule = ToUtf8(entry.rule->m_strDisplayName);
    if (!document.ConfigureRule(entry)) {
        Print(rule + " was not changed\n");
        return ExitCode::Done;
    }
    document.Save(FromUtf8(output));
    Print(output + ": " + rule + " changed\n");
    return ExitCode::Done;
}

}  // namespace

void AddConfigure(CommandLine& commandLine) {
    const auto options = std::make_shared<ConfigureOptions>();
    CLI::App& command = commandLine.Add(
        "configure", "Open the dialog of a rule and save what is changed in it",
        [options](const RuleModule& module) { return Configure(module, *options); },
        CommandLine::Database::UsedIfThere);
    command.add_option("--rule", options->ruleId, "Id of the rule, as list and show print it")
        ->type_name("ID")
        ->required();
    AddInputAndOutput(command, options->input, options->output);
}
