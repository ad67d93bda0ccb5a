#include "DocumentCheck.h"

#include "RuleRecordCheck.h"
#include "ValueCheck.h"

namespace {

std::vector<Finding> CheckRecords(const RuleDocument& document) {
    std::vector<Finding> findings;
    const Reporter reporter(document, findings);
    CheckDocumentAttributes(reporter);
    for (const RuleDocument::Entry& entry : document.GetEntries()) CheckRuleRecord(reporter.About(&entry));
    CheckNestedRules(reporter);
    CheckXmlFlaws(reporter);
    return findings;
}

void CheckValues(const RuleDocument& document, std::vector<Finding>& findings) {
    const IgnoredValues ignored(findings);
    const Reporter reporter(document, findings);
    for (const RuleDocument::Entry& entry : document.GetEntries()) {
        if (!entry.rule) continue;
        const Reporter about = reporter.About(&entry);
        const RuleToCheck rule{about, ignored};
        CheckThicknessLimits(rule);
        CheckGroupBands(rule);
        CheckDraftAngles(rule);
        CheckVariation(rule);
    }
}

}  // namespace

std::vector<Finding> CheckDocument(const RuleDocument& document) {
    std::vector<Finding> findings = CheckRecords(document);
    CheckValues(document, findings);
    SortByLine(findings);
    return findings;
}

std::vector<Finding> FindIgnoredContent(const RuleDocument& document) {
    std::vector<Finding> findings = CheckRecords(document);
    std::erase_if(findings, [](const Finding& finding) { return !finding.Kind().isIgnored; });
    SortByLine(findings);
    return findings;
}

std::vector<Finding> FindIgnoredContent(const RuleDocument& document, const RuleDocument::Entry& entry) {
    std::vector<Finding> findings = FindIgnoredContent(document);
    const auto index = &entry - document.GetEntries().data();
    std::erase_if(findings, [=](const Finding& finding) { return finding.entry != index; });
    return findings;
}
