#include "DocumentCheck.h"

#include "RuleRecordCheck.h"
#include "RuleValues.h"
#include "ValueCheck.h"

#include <algorithm>

namespace {

std::vector<Finding> CheckRecords(const RuleDocument& document) {
    std::vector<Finding> findings;
    const Reporter reporter(document, findings);
    CheckDocumentAttributes(reporter);
    if (CountRules(document) == 0) reporter.Add<FindingCode::NoRule>(document.GetRoot());
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

// The key of what the finding is about, or of the nearest thing around it that has one.
std::string PlaceOf(const Finding& finding, const RuleDocument::Entry& entry,
                    const std::vector<std::string>& constraintKeys) {
    std::string place = entry.key;
    const RecordLocation& location = finding.location;
    const auto constraint = static_cast<std::size_t>(location.constraint);
    if (location.constraint >= 0 && constraint < constraintKeys.size())
        place += "/" + constraintKeys[constraint];
    if (!location.paramId) return place;
    place += "/" + std::to_string(location.paramId);
    return location.row ? place + "/" + std::to_string(location.row) : place;
}

std::vector<Finding> Finish(const RuleDocument& document, std::vector<Finding> findings) {
    std::vector<std::vector<std::string>> constraintKeys;  // by entry
    for (const RuleDocument::Entry& entry : document.GetEntries())
        constraintKeys.push_back(entry.rule ? ConstraintKeys(*entry.rule) : std::vector<std::string>());
    for (Finding& finding : findings) {
        if (finding.entry < 0) continue;
        const auto entry = static_cast<std::size_t>(finding.entry);
        finding.place = PlaceOf(finding, document.GetEntries()[entry], constraintKeys[entry]);
    }
    SortByLine(findings);
    return findings;
}

}  // namespace

std::size_t CountRules(const RuleDocument& document) {
    return static_cast<std::size_t>(std::ranges::count_if(
        document.GetEntries(), [](const auto& entry) { return entry.rule != nullptr; }));
}

std::vector<Finding> CheckDocument(const RuleDocument& document) {
    std::vector<Finding> findings = CheckRecords(document);
    CheckValues(document, findings);
    return Finish(document, std::move(findings));
}

std::vector<Finding> FindIgnoredContent(const RuleDocument& document) {
    std::vector<Finding> findings = CheckRecords(document);
    std::erase_if(findings, [](const Finding& finding) { return !finding.Kind().isIgnored; });
    return Finish(document, std::move(findings));
}

std::vector<Finding> FindIgnoredContent(const RuleDocument& document, const RuleDocument::Entry& entry) {
    std::vector<Finding> findings = FindIgnoredContent(document);
    const auto index = &entry - document.GetEntries().data();
    std::erase_if(findings, [=](const Finding& finding) { return finding.entry != index; });
    return findings;
}
