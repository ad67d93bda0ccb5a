#include "Finding.h"

#include "Text.h"

#include <algorithm>

std::string FindingText(const Finding& finding) {
    std::string text = finding.constraintName.empty() ? "" : finding.constraintName + ": ";
    std::string_view rest = finding.Kind().text;
    for (const std::string& insert : finding.inserts) {
        const std::size_t end = rest.find("{}");
        text.append(rest.substr(0, end)).append(insert);
        rest.remove_prefix(end + 2);
    }
    return text.append(rest);
}

std::string DescribeFinding(const Finding& finding) {
    std::string text = finding.rule.empty() ? "" : Shortened(FromUtf8(finding.rule)) + ": ";
    if (finding.location.paramId) text += "parameter " + std::to_string(finding.location.paramId);
    if (!finding.parameter.empty()) text += " (" + finding.parameter + ")";
    return text + (finding.location.paramId ? ", " : "") + FindingText(finding);
}

void SortByLine(std::vector<Finding>& findings) {
    std::ranges::stable_sort(findings, {}, &Finding::line);
}

const char* SeverityName(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return "error";
        case Severity::Warning:
            return "warning";
        case Severity::Hint:
            break;
    }
    return "hint";
}
