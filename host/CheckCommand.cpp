#include "CheckRun.h"
#include "Commands.h"
#include "Console.h"
#include "FileArguments.h"
#include "FileSelection.h"
#include "Text.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct CheckOptions {
    std::vector<std::string> names;  // of files and folders, and patterns
    std::string accepted;            // file of accepted findings; empty: there is none
    CheckSeverities severities;
    std::optional<CheckFormat> format;
    bool isJson = false;
};

constexpr std::string_view kFormatNames[] = {"text", "json", "sarif"};  // in the order of CheckFormat

// The names are checked before. None for kNever.
std::optional<Severity> SeverityOf(const std::string& name) {
    for (const Severity severity : {Severity::Hint, Severity::Warning, Severity::Error})
        if (name == SeverityName(severity)) return severity;
    return {};
}

CheckFormat FormatOf(const CheckOptions& options) {
    const CheckFormat format =
        options.format.value_or(options.isJson ? CheckFormat::Json : CheckFormat::Text);
    if (options.isJson && format != CheckFormat::Json)
        throw CommandError(ExitCode::WrongUsage, "check: --json and another --format exclude each other");
    return format;
}

std::vector<SelectedFile> SelectAll(const std::vector<std::string>& names) {
    std::vector<SelectedFile> files;
    for (const std::string& name : names) {
        if (name == kStandardStream)
            files.push_back({name});
        else
            std::ranges::move(SelectFiles(name), std::back_inserter(files));
    }
    return files;
}

// Every file is checked, even when another one can't be read. Nothing is checked when the accepted findings
// have errors.
ExitCode Check(const RuleModule& module, const CheckOptions& options) {
    AcceptedFindings accepted;
    if (!options.accepted.empty())
        accepted = AcceptedFindings(FromUtf8(options.accepted), ReadBytes(options.accepted));
    const std::vector<SelectedFile> files = SelectAll(options.names);
    CheckRun run(module, options.severities, FormatOf(options), std::move(accepted));
    for (std::size_t i = 0; i < files.size(); ++i) {
        run.Add(files[i]);
        PrintProgress(i + 1, files.size(), "file");
    }
    return run.Finish(options.accepted);
}

using Choose = std::function<void(const std::string&)>;

// An option with one of several words, whose letter case does not count.
void AddChoice(CLI::App& command, const char* name, const char* typeName,
               const std::vector<std::string>& words, const Choose& choose, const char* description) {
    command.add_option_function<std::string>(name, choose, description)
        ->type_name(typeName)
        ->transform(CLI::IsMember(words, CLI::ignore_case).description(""));
}

void AddSeverities(CLI::App& command, CheckSeverities& severities) {
    AddChoice(
        command, "--severity", "SEVERITY", {"hint", "warning", "error"},
        [&](const std::string& name) { severities.shown = *SeverityOf(name); },
        "The least that is shown: hint, warning or error");
    AddChoice(
        command, "--fail-on", "SEVERITY", {"hint", "warning", "error", kNever},
        [&](const std::string& name) { severities.failing = SeverityOf(name); },
        "The least that makes the exit code 1: hint, warning, error, or never; warning unless told "
        "otherwise. A document without a rule is a warning. Accepted findings do not count");
}

void AddFormat(CLI::App& command, CheckOptions& options) {
    const auto choose = [&](const std::string& name) {
        const auto position = std::ranges::find(kFormatNames, name) - std::begin(kFormatNames);
        options.format = static_cast<CheckFormat>(position);
    };
    AddChoice(
        command, "--format", "FORMAT", {std::begin(kFormatNames), std::end(kFormatNames)}, choose,
        "Form of the output: text, json, or sarif for programs that show results of checks (SARIF 2.1.0)");
    command.add_flag("--json", options.isJson, "Short for --format json");
}

}  // namespace

void AddCheck(CommandLine& commandLine) {
    const auto options = std::make_shared<CheckOptions>();
    CLI::App& command = commandLine.Add(
        "check", "Report what is wrong or unusual in rule documents",
        {"mfxhost check rules.xml", "mfxhost check rules --fail-on error --accepted accepted.json",
         R"(mfxhost check rules\*.xml old\**\*.xml --format sarif > check.sarif)"},
        [options](const RuleModule& module) { return Check(module, *options); });
    AddFile(
        command, "FILE", options->names,
        "Rule documents to check; a folder stands for the *.xml files in it and below it, a pattern with * "
        "and ? for the files that match, ** in it for any folders; - for standard input")
        ->required();
    AddSeverities(command, options->severities);
    AddFile(command, "--accepted", options->accepted,
            "Findings that are accepted, each with a reason (docs/accepted-findings.schema.json)")
        ->type_name("FILE");
    AddFormat(command, *options);
}
