#include "Reporter.h"

#include "RecordNames.h"
#include "Text.h"

namespace {

// The constraints of a rule have the same parameters.
std::string ParameterName(const CMfxRule& rule, long paramId) {
    const CMfxParamStorage* storage = FindParameter(rule.m_paramArray, paramId);
    if (!storage && !rule.m_constraintArray.IsEmpty())
        storage = rule.m_constraintArray[0]->FindParameterInArray(paramId);
    return storage ? ToUtf8(storage->m_strName) : "";
}

}  // namespace

Reporter Reporter::About(const RuleDocument::Entry* entry) const {
    Reporter other(m_document, m_findings);
    other.m_entry = entry;
    return other;
}

Reporter Reporter::InConstraint(int constraint) const {
    Reporter other(*this);
    other.m_location.constraint = constraint;
    return other;
}

Reporter Reporter::OfParameter(long paramId) const {
    Reporter other(*this);
    other.m_location.paramId = paramId;
    return other;
}

Reporter Reporter::InRow(int row) const {
    Reporter other(*this);
    other.m_location.row = row;
    return other;
}

Finding& Reporter::AddAtLine(FindingCode code, int line, std::vector<std::string> inserts) const {
    Finding& finding = m_findings.emplace_back(
        Finding{.code = code, .inserts = std::move(inserts), .line = line, .location = m_location});
    if (!m_entry) return finding;
    const CMfxRule* rule = m_entry->rule.get();
    finding.entry = static_cast<int>(m_entry - m_document.GetEntries().data());
    finding.rule = ToUtf8(rule ? rule->m_strDisplayName : m_entry->record->GetAttribute(kNameAttribute));
    if (!rule) return finding;
    finding.ruleId = rule->GetRuleId();
    finding.parameter = ParameterName(*rule, m_location.paramId);
    return finding;
}

void Reporter::AddAtValue(FindingCode code, std::vector<std::string> inserts) const {
    Finding& finding = AddAtLine(code, m_document.GetLine(*m_entry, m_location), std::move(inserts));
    if (m_location.constraint >= 0)
        finding.constraintName = Shortened(GetRule().m_constraintArray[m_location.constraint]->m_strName);
}
