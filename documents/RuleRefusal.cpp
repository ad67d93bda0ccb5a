#include "RuleRefusal.h"

#include "BandTableTexts.h"
#include "DraftTableTexts.h"
#include "MaterialLimitsTexts.h"
#include "ModuleText.h"
#include "NumberText.h"
#include "RuleParameters.h"
#include "RuleValues.h"
#include "Text.h"
#include "Units.h"
#include "resource.h"

namespace {

// 0 when there is none.
double NumberOf(const CMfxParamStorage* parameter) {
    return FirstNumber(parameter).value_or(0.0);
}

// A limit that is switched off may be anything.
CString RefusalOfCommonLimits(const CMfxRule& rule) {
    const CMfxParamStorage* const limits[] = {FindParameter(rule.m_paramArray, kThicknessMinId),
                                              FindParameter(rule.m_paramArray, kThicknessMaxId)};
    for (const CMfxParamStorage* limit : limits)
        if (limit && limit->m_bStatus && NumberOf(limit) <= 0.0)
            return FormattedText(IDS_UNIFORM_NO_NUMBER, limit->m_strName);
    const bool areOn = limits[0] && limits[1] && limits[0]->m_bStatus && limits[1]->m_bStatus;
    const bool isInverted = areOn && NumberOf(limits[0]) > NumberOf(limits[1]) + kTolerance;
    return isInverted ? LoadModuleText(IDS_MAXIMUM_BELOW_MINIMUM) : CString();
}

CString RefusalOfLimits(const CMfxRule& rule) {
    const CString refusal = RefusalOfCommonLimits(rule);
    if (!refusal.IsEmpty()) return refusal;
    std::vector<MaterialLimitTexts> rows;
    for (const CMFXConstraint* material : rule.m_constraintArray)
        rows.push_back({material->m_strName,
                        FormatDouble(NumberOf(material->FindParameterInArray(kThicknessMinId))),
                        FormatDouble(NumberOf(material->FindParameterInArray(kThicknessMaxId)))});
    const MaterialLimitsResult result = CheckMaterialLimits(rows);
    return result.flaw == MaterialLimitsFlaw::None ? CString() : MaterialFlawText(result);
}

CString RefusalOfGroups(const CMfxRule& rule) {
    const RuleUnits units = UnitsOf(rule);
    for (const CMFXConstraint* group : rule.m_constraintArray) {
        const CString text = BandFlawText(CheckSizeAndWeightBands(NumberBands(ReadBands(*group))),
                                          FromUtf8(UnitSymbol(Quantity::Length, units)),
                                          FromUtf8(UnitSymbol(Quantity::Mass, units)));
        if (!text.IsEmpty()) return group->m_strName + L": " + text;
    }
    return CString();
}

CString RefusalOfDraftTable(const CMfxRule& rule) {
    const CMfxParamStorage* table = FindParameter(rule.m_paramArray, kDraftAngleTableId);
    if (!table) return CString();
    const DraftTableResult result = CheckDraftTable(RowsAsShown(table->GetValues<MfxTableRow>()));
    return result.flaw == DraftTableFlaw::None ? CString() : DraftFlawText(result);
}

}  // namespace

CString FindRefusal(const CMfxRule& rule) {
    switch (rule.GetRuleId()) {
        case kUniformThicknessRuleId:
            return RefusalOfLimits(rule);
        case kSizeAndWeightRuleId:
            return RefusalOfGroups(rule);
        case kDraftAngleRuleId:
            return RefusalOfDraftTable(rule);
        case kVariationRuleId:
            return NumberOf(FindParameter(rule.m_paramArray, kVariationId)) == 0.0
                       ? LoadModuleText(IDS_VALUE_IS_ZERO)
                       : CString();
        default:
            return CString();
    }
}
