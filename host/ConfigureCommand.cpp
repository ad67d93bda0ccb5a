#include "Commands.h"
#include "Console.h"
#include "DocumentCheck.h"
#include "DocumentFile.h"
#include "DocumentOutput.h"
#include "FileArguments.h"
#include "RuleArgument.h"
#include "Text.h"

#include <algorithm>
#include <iterator>
#include <memory>

namespace {

struct ConfigureOptions : InputAndOutput {
    std::string ruleKey;
};

void RequireDisplay() {
    const HWND hWindow =
        CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    if (!hWindow)
        throw CommandError(ExitCode::NotPossible, "there is no display on which a dialog can be shown");
    DestroyWindow(hWindow);
}

ExitCode Configure(const RuleModule& module, const ConfigureOptions& options) {
    RuleDocument document = ReadDocument(module, options.input);
    const RuleDocument::Entry& entry = RequireRule(document, options.ruleKey);
    // The dialog would drop what the module ignores of the rule.
    if (PrintFindings(document, FindIgnoredContent(document, entry))) {
        PrintError("mfxhost: " + options.input + " was not changed\n");
        return ExitCode::Findings;
    }
    const std::string& output = options.Target();
    // Before anything is edited.
    if (output != kStandardStream) ThrowIfUnwritable(FromUtf8(output));
    RequireDisplay();
    const std::string rule = ToUtf8(entry.rule->m_strDisplayName);
    if (!document.ConfigureRule(entry)) {
        if (output == kStandardStream) SaveDocument(document, output);
        PrintOutcome(output, rule + " was not changed\n");
        return ExitCode::Done;
    }
    SaveDocument(document, output);
    PrintOutcome(output, output + ": " + rule + " changed\n");
    return ExitCode::Done;
}

}  // namespace

void AddConfigure(CommandLine& commandLine) {
    const auto options = std::make_shared<ConfigureOptions>();
    CLI::App& command = commandLine.Add(
        "configure", "Open the dialog of a rule and save what is changed in it",
        {"mfxhost configure rules.xml --rule 19040"},
        [options](const RuleModule& module) { return Configure(module, *options); },
        CommandLine::Database::UsedIfThere);
    commandLine.UseLanguageOfUser(command);
    AddRuleOption(command, options->ruleKey);
    AddInputAndOutput(command, *options);
}
