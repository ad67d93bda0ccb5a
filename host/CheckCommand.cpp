#include "Commands.h"
#include "Console.h"
#include "DocumentCheck.h"
#include "DocumentFiles.h"
#include "DocumentOutput.h"
#include "Text.h"

#include <algorithm>
#include <memory>

namespace {

struct CheckOptions {
    std::vector<std::string> files;
    Severity severity = Severity::Hint;  // the least that is reported
    bool isJson = false;
};

// The names are checked before; their letter case does not count.
Severity SeverityOf(const std::string& name) {
    for (const Severity severity : {Severity::Warning, Severity::Error})
        if (FromUtf8(name).CompareNoCase(FromUtf8(SeverityName(severity))) == 0) return severity;
    return Severity::Hint;
}

// What is known of one file after its check.
struct FileReport {
    std::string file;
    std::string unreadable = {};  // why it could not be read; empty when it could
    std::unique_ptr<RuleDocument> document = nullptr;
    std::ptrdiff_t rules = 0;  // those of the module
    std::vector<Finding> findings = {};
};

FileReport CheckFile(const RuleModule& module, const std::string& file, Severity least) {
    FileReport report{.file = file};
    try {
        report.document = std::make_unique<RuleDocument>(ReadDocument(module, file));
    } catch (const DocumentError& error) {
        if (error.GetKind() != DocumentError::Kind::Unreadable) throw;
        report.unreadable = error.what();
        return report;
    }
    report.rules = std::ranges::count_if(report.document->GetEntries(),
                                         [](const auto& entry) { return entry.rule != nullptr; });
    report.findings = CheckDocument(*report.document);
    std::erase_if(report.findings, [=](const Finding& finding) { return finding.Kind().severity < least; });
    return report;
}

void PrintReport(const FileReport& report) {
    if (!report.document) {
        PrintError("mfxhost: " + Escaped(report.unreadable) + "\n");
        return;
    }
    std::string text;
    for (const Finding& finding : report.findings)
        text += report.file + ":" + std::to_string(finding.line) + ": " +
                SeverityName(finding.Kind().severity) + ": " + Escaped(DescribeFinding(finding)) + "\n";
    if (report.rules == 0) text += report.file + ": there is no rule to check\n";
    Print(text);
}

Json ReportToJson(const FileReport& report) {
    Json json{{"file", report.file}};
    if (!report.document) {
        json["unreadable"] = report.unreadable;
        return json;
    }
    json["units"] = UnitsToJson(report.document->GetUnits());
    json["rulesChecked"] = report.rules;
    json["findings"] = ToArray(report.findings, FindingToJson);
    return json;
}

// Every file is checked, even when another one can't be read. UnreadableInput when a file could not be read,
// otherwise Findings when something was found or a file has no rule to check.
ExitCode CheckFiles(const RuleModule& module, const CheckOptions& options) {
    constexpr int kJsonVersion = 2;
    Json json{{"version", kJsonVersion}, {"files", Json::array()}};
    bool isUnreadable = false, isFound = false;
    for (std::size_t i = 0; i < options.files.size(); ++i) {
        const FileReport report = CheckFile(module, options.files[i], options.severity);
        if (options.isJson)
            json["files"].push_back(ReportToJson(report));
        else
            PrintReport(report);
        isUnreadable = isUnreadable || !report.document;
        isFound = isFound || !report.findings.empty() || report.rules == 0;
        PrintProgress(i + 1, options.files.size(), "file");
    }
    if (options.isJson) PrintJson(json);
    if (isUnreadable) return ExitCode::UnreadableInput;
    return isFound ? ExitCode::Findings : ExitCode::Done;
}

}  // namespace

void AddCheck(CommandLine& commandLine) {
    const auto options = std::make_shared<CheckOptions>();
    CLI::App& command =
        commandLine.Add("check", "Report what is wrong or unusual in rule documents",
                        {"mfxhost check rules.xml", "mfxhost check rules.xml --severity error --json"},
                        [options](const RuleModule& module) { return CheckFiles(module, *options); });
    AddFile(command, "FILE", options->files, "Rule documents to check; - for standard input")->required();
    command
        .add_option_function<std::string>(
            "--severity", [options](const std::string& name) { options->severity = SeverityOf(name); },
            "The least that is reported: hint, warning or error")
        ->type_name("SEVERITY")
        ->check(CLI::IsMember(std::vector<std::string>{"hint", "warning", "error"}, CLI::ignore_case)
                    .description(""));
    command.add_flag("--json", options->isJson, "Print the findings as JSON");
}
