#include "DocumentOutput.h"

#include "Console.h"
#include "Text.h"

std::string DocumentHeading(const CString& path, const RuleDocument& document) {
    return ToUtf8(path) + ": " + Count(document.GetEntries().size(), "rule") + " in " +
           UnitWords(document.GetUnits()) + "\n";
}

std::string FindingLine(const RuleDocument& document, const Finding& finding) {
    return LinePrefix(document.GetPath(), finding.line) + Escaped(DescribeFinding(finding)) + "\n";
}

bool PrintFindings(const RuleDocument& document, const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) PrintError(FindingLine(document, finding));
    return !findings.empty();
}

Json FindingToJson(const Finding& finding) {
    Json json{{"key", finding.Kind().key},
              {"severity", SeverityName(finding.Kind().severity)},
              {"line", finding.line},
              {"rule", finding.rule}};
    json["ruleId"] = finding.ruleId ? Json(finding.ruleId) : Json(nullptr);
    json["parameter"] = finding.location.paramId ? Json(finding.location.paramId) : Json(nullptr);
    json["place"] = TextOrNull(finding.place);
    json["text"] = FindingText(finding);
    return json;
}
