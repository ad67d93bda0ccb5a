#include "RuleParameters.h"
#include "ValueCheck.h"

void CheckVariation(const RuleToCheck& rule) {
    const CMfxParamStorage* variation = FindParameter(rule.Rule().m_paramArray, kVariationId);
    if (!variation || !rule.IsRead(-1, {kVariationId}) || variation->GetValues<double>().IsEmpty()) return;
    if (variation->GetValues<double>()[0] <= 0.0)
        rule.reporter.OfParameter(kVariationId).AddAboutValues<FindingCode::VariationNotPositive>();
}
