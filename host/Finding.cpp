#include "Finding.h"

#include "Text.h"

#include <algorithm>

std::string FormatFinding(const Finding& finding) {
    std::string text = finding.rule.empty() ? "" : Shortened(FromUtf8(finding.rule)) + ": ";
    if (finding.nParamId) text += "parameter " + std::to_string(finding.nParamId);
    if (!finding.parameter.empty()) text += " (" + finding.parameter + ")";
    return Escaped(text + (finding.nParamId ? ", " : "") + finding.text);
}

void SortByLine(std::vector<Finding>& findings) {
    std::ranges::stable_sort(findings, {}, &Finding::nLine);
}

std::string SeverityName(Severity severity) {
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
