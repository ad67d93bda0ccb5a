#include "Finding.h"

std::string FormatFinding(const Finding& finding) {
    return (finding.nParamId ? "parameter " + std::to_string(finding.nParamId) + ", " : "") + finding.text;
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
