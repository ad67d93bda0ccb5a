#include "ConstraintCheck.h"

#include "ElementCheck.h"
#include "ParameterCheck.h"
#include "RecordNames.h"
#include "RuleParameters.h"
#include "Text.h"

#include <set>
#include <utility>

namespace {

void CheckName(const Reporter& reporter, const MfxXMLNode& constraint, std::set<CString>& names) {
    CString name;
    if (!constraint.GetAttributeValue(kConstraintNameAttribute, name)) return;
    if (name.IsEmpty()) reporter.Add<FindingCode::MissingConstraintName>(constraint);
    if (!names.insert(name).second)
        reporter.Add<FindingCode::RepeatedConstraintName>(constraint, Quoted(name));
}

void CheckAttributes(const Reporter& reporter, const MfxXMLNode& constraint, std::set<CString>& names) {
    CString value;
    for (const CString* name : {&kTypeAttribute, &kConstraintNameAttribute, &kStatusAttribute})
        if (!constraint.GetAttributeValue(*name, value))
            reporter.Add<FindingCode::MissingConstraintAttribute>(constraint, ToUtf8(*name));
    CheckStatus(reporter, constraint);
    CheckName(reporter, constraint, names);
}

// Element i of each list of a material group makes band i.
void CheckListLengths(const Reporter& reporter, const MfxXMLNode& constraint, const MfxParamArray& params) {
    std::set<int> lengths;
    for (const MfxParamRecord& record : params)
        if (IsBandParameter(record.m_pStorage->m_nParamId))
            lengths.insert(record.m_pStorage->GetValues<double>().GetCount());
    if (lengths.size() > 1) reporter.Add<FindingCode::UnequalLists>(constraint);
}

}  // namespace

void CheckConstraints(const Reporter& reporter) {
    const MfxXMLNode& record = *reporter.GetEntry().record;
    const auto& constraints = reporter.GetRule().m_constraintArray;
    std::vector<MfxXMLNode> elements;
    record.ForEachChild(kConstraintTag, [&](const MfxXMLNode& element) { elements.push_back(element); });
    std::set<CString> names;
    for (const MfxXMLNode& element : elements) CheckAttributes(reporter, element, names);
    // The rule keeps its own constraints when the record has another number of them.
    if (!elements.empty() && std::cmp_not_equal(elements.size(), constraints.GetCount()))
        reporter.Add<FindingCode::ConstraintCount>(record, Count(elements.size(), "constraint"),
                                                   constraints.GetCount());
    for (int i = 0; std::cmp_less(i, elements.size()) && i < constraints.GetCount(); ++i) {
        const MfxXMLNode& element = elements[static_cast<std::size_t>(i)];
        CheckParameters(reporter.InConstraint(i), element, constraints[i]->m_paramArray);
        CheckListLengths(reporter.InConstraint(i), element, constraints[i]->m_paramArray);
    }
}
