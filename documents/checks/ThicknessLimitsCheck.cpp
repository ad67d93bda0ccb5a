#include "NumberText.h"
#include "ParameterXml.h"
#include "RecordNames.h"
#include "RuleParameters.h"
#include "ValueCheck.h"
#include "ValueContent.h"

namespace {

bool IsOn(const CMfxParamStorage& limit) {
    return limit.m_bStatus && !limit.GetValues<double>().IsEmpty();
}

void CheckPair(const RuleToCheck& rule, int constraint, const MfxParamArray& params) {
    const CMfxParamStorage* minimum = FindParameter(params, kThicknessMinId);
    const CMfxParamStorage* maximum = FindParameter(params, kThicknessMaxId);
    if (!minimum || !maximum || !rule.IsRead(constraint, {kThicknessMinId, kThicknessMaxId}) ||
        !rule.IsRead(-1, {kLegacyMaterialTableId}))
        return;
    const Reporter reporter = rule.reporter.InConstraint(constraint);
    for (const CMfxParamStorage* limit : {minimum, maximum})
        if (IsOn(*limit) && limit->GetValues<double>()[0] <= 0.0)
            reporter.OfParameter(limit->m_nParamId).AddAboutValues<FindingCode::LimitNotPositive>();
    if (!IsOn(*minimum) || !IsOn(*maximum)) return;
    const double lower = minimum->GetValues<double>()[0], upper = maximum->GetValues<double>()[0];
    if (lower > upper + kTolerance)
        reporter.OfParameter(kThicknessMinId)
            .AddAboutValues<FindingCode::MinimumAboveMaximum>(FormatNumber(lower, kComparedDigits),
                                                              FormatNumber(upper, kComparedDigits));
}

void HintAtOlderForms(const RuleToCheck& rule) {
    const MfxXMLNode& record = *rule.reporter.GetEntry().record;
    if (FindParameterElement(record, kLegacyMaterialTableId))
        rule.reporter.OfParameter(kLegacyMaterialTableId).AddAboutValues<FindingCode::LegacyMaterialTable>();
    for (const long paramId : {kThicknessMinId, kThicknessMaxId}) {
        const auto limit = FindParameterElement(record, static_cast<std::int32_t>(paramId));
        int count = 0;
        if (limit) limit->ForEachChild(kValueTag, [&](const MfxXMLNode&) { ++count; });
        if (count == 2 && rule.IsRead(-1, {paramId}))
            rule.reporter.OfParameter(paramId).InRow(2).AddAboutValues<FindingCode::LegacySwitchedLimit>();
    }
}

}  // namespace

void CheckThicknessLimits(const RuleToCheck& rule) {
    const MfxParamArray& params = rule.Rule().m_paramArray;
    if (!FindParameter(params, kThicknessMinId)) return;
    CheckPair(rule, -1, params);
    const auto& constraints = rule.Rule().m_constraintArray;
    for (int i = 0; i < constraints.GetCount(); ++i) CheckPair(rule, i, constraints[i]->m_paramArray);
    HintAtOlderForms(rule);
}
