#include "CheckCommand.h"

#include "JsonOutput.h"
#include "RecordCheck.h"
#include "RuleCheck.h"
#include "RuleDocument.h"
#include "Text.h"

#include <algorithm>

namespace {

std::vector<Finding> FindAll(const RuleDocument& document, Severity least) {
    std::vector<Finding> findings = CheckRecords(document);
    std::ranges::move(CheckRules(document), std::back_inserter(findings));
    std::erase_if(findings, [least](const Finding& finding) { return finding.severity < least; });
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& first, const Finding& second) { return first.nLine < second.nLine; });
    return findings;
}

void PrintReport(const FileReport& report) {
    if (report.unreadable.empty())
        Print(FormatReport(report));
    else
        PrintError("mfxhost: " + report.unreadable + "\n");
}

Json FindingToJson(const Finding& finding) {
    Json json{{"severity", SeverityName(finding.severity)}, {"line", finding.nLine}, {"rule", finding.rule}};
    json["ruleId"] = finding.nRuleId ? Json(finding.nRuleId) : Json(nullptr);
    json["parameter"] = finding.nParamId ? Json(finding.nParamId) : Json(nullptr);
    json["text"] = finding.text;
    return json;
}

Json ToJson(const FileReport& report) {
    Json json{{"file", report.file}};
    if (!report.unreadable.empty()) {
        json["unreadable"] = report.unreadable;
        return json;
    }
    json["units"] = UnitsToJson(report.units);
    json["rulesChecked"] = report.nRules;
    json["findings"] = ToArray(report.findings, FindingToJson);
    return json;
}

}  // namespace

FileReport CheckFile(const CString& strFile, const RuleModule& module, Severity least) {
    FileReport report;
    report.file = ToUtf8(strFile);
    try {
        const RuleDocument document(strFile, module);
        report.units = document.GetUnits();
        for (const RuleDocument::Entry& entry : document.GetEntries()) report.nRules += entry.pRule ? 1 : 0;
        report.findings = FindAll(document, least);
    } catch (const HostError& error) {
        if (error.Code() != ExitCode::UnreadableInput) throw;
        report.unreadable = error.what();
    }
    return report;
}

std::string FormatReport(const FileReport& report) {
    std::string text;
    for (const Finding& finding : report.findings)
        text += report.file + ":" + std::to_string(finding.nLine) + ": " + SeverityName(finding.severity) +
                ": " + (finding.rule.empty() ? "" : finding.rule + ": ") + FormatFinding(finding) + "\n";
    if (report.nRules == 0) text += report.file + ": there is no rule to check\n";
    return text;
}

ExitCode CheckDocuments(const RuleModule& module, const CheckOptions& options) {
    constexpr int kJsonVersion = 1;
    Json json{{"version", kJsonVersion}, {"files", Json::array()}};
    bool bUnreadable = false, bFound = false;
    for (std::size_t i = 0; i < options.files.size(); ++i) {
        const FileReport report = CheckFile(options.files[i], module, options.severity);
        if (options.bJson)
            json["files"].push_back(ToJson(report));
        else
            PrintReport(report);
        bUnreadable = bUnreadable || !report.unreadable.empty();
        bFound = bFound || !report.findings.empty() || report.nRules == 0;
        PrintProgress(i + 1, options.files.size(), "file");
    }
    if (options.bJson) PrintJson(json);
    if (bUnreadable) return ExitCode::UnreadableInput;
    return bFound ? ExitCode::Findings : ExitCode::Done;
}
