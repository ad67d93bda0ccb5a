#include "RuleFactory.h"

#include "RecordNames.h"
#include "RuleHeader.h"
#include "RuleParameters.h"
#include "SCVariableDraftAngleRule.h"
#include "SCWTVariationRule.h"
#include "SandCastingRulesApp.h"
#include "UniformThicknessRule.h"
#include "WTBasedOnCastSizeAndWeightRule.h"
#include "resource.h"

#include <memory>

namespace {

using RulePtr = std::unique_ptr<CMfxRule>;

struct FactoryRow {
    UINT nNameStringId;
    RulePtr (*create)(const CString& strProcess, MfxXMLNode* pNode);
};

template <class Rule>
RulePtr CreateWithRecord(const CString& strProcess, MfxXMLNode* pNode) {
    return std::make_unique<Rule>(strProcess, kModuleName, CategorySandCasting, Rule::kRuleId, pNode);
}

RulePtr CreateDraftAngleRule(const CString&, MfxXMLNode*) {
    return std::make_unique<CMFXSCVariableDraftAngleRule>();
}

RulePtr CreateVariationRule(const CString& strProcess, MfxXMLNode*) {
    return std::make_unique<CMFXSCWTVariationRule>(strProcess, kModuleName, CategorySandCasting,
                                                   CMFXSCWTVariationRule::kRuleId);
}

// In the order in which rules are created and in which a record's name is compared.
constexpr FactoryRow kRules[] = {
    {IDS_UNIFORM_RULE_NAME, &CreateWithRecord<CMFXUniformThicknessRule>},
    {IDS_SIZE_WEIGHT_RULE_NAME, &CreateWithRecord<CMFXWTBasedOnCastSizeAndWeightRule>},
    {IDS_DRAFT_RULE_NAME, &CreateDraftAngleRule},
    {IDS_VARIATION_RULE_NAME, &CreateVariationRule},
};

RulePtr CreateRule(const FactoryRow& row, MfxXMLNode* pNode) {
    try {
        return row.create(LoadLocalizedString(IDS_PROCESS), pNode);
    } catch (...) {  // std::bad_alloc, or what MFC throws in its place
        return nullptr;
    }
}

}  // namespace

void AppendAllRules(MfxRuleArray& rules) {
    for (const FactoryRow& row : kRules) {
        RulePtr pRule = CreateRule(row, nullptr);
        if (!pRule) continue;
        rules.Add(pRule.get());
        static_cast<void>(pRule.release());
    }
}

bool IsRecordOfThisModule(const MfxXMLNode& record) {
    return record.GetAttribute(kModuleAttribute).CompareNoCase(kModuleName) == 0;
}

CMfxRule* CreateRuleForRecord(MfxXMLNode& record) {
    const CString strName = record.GetAttribute(kNameAttribute);
    if (strName.IsEmpty())
        return nullptr;  // without the default language all names to compare with are empty
    for (const FactoryRow& row : kRules) {
        if (strName.CompareNoCase(LoadDefaultLanguageString(row.nNameStringId)) != 0) continue;
        if (RulePtr pRule = CreateRule(row, &record)) return pRule.release();
    }
    return nullptr;
}

void PrepareForRecord(CMfxRule& rule) {
    if (auto* pRule = dynamic_cast<CMFXWTBasedOnCastSizeAndWeightRule*>(&rule))
        pRule->m_nReloadMode = CMFXWTBasedOnCastSizeAndWeightRule::kRebuildConstraints;
}
