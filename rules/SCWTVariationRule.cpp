#include "SCWTVariationRule.h"

#include "NoThrow.h"
#include "NumberText.h"
#include "ParameterXml.h"
#include "ResourceSwitch.h"
#include "RuleDialogs.h"
#include "RuleHeader.h"
#include "RuleParameters.h"
#include "RuleRecord.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

namespace {

constexpr double kDefaultVariation = 25.0;

CString VariationSummary(const CString& strVariation) {
    CString strSummary;
    strSummary.Format(LoadLocalizedString(IDS_VARIATION_SUMMARY), strVariation.GetString());
    return strSummary;
}

}  // namespace

CMFXSCWTVariationRule::CMFXSCWTVariationRule(int nRuleId) {
    SetHeader(LoadLocalizedString(IDS_PROCESS), kModuleName, CategorySandCasting, nRuleId);
    CreateParameters();
}

CMFXSCWTVariationRule::CMFXSCWTVariationRule(const CString& strProcess, const CString& strModule,
                                             MFXRuleCategory_e category, int nRuleId) {
    SetHeader(strProcess, strModule, category, nRuleId);
    CreateParameters();
}

void CMFXSCWTVariationRule::SetHeader(const CString& strProcess, const CString& strModule,
                                      MFXRuleCategory_e category, int nRuleId) {
    if (!g_pSandCastingRulesApp) return;
    SetRuleHeader(*this, IDS_VARIATION_RULE_NAME, strProcess, strModule, category, nRuleId);
    m_strSummary = VariationSummary(L"");
    m_strDescription = LoadLocalizedString(IDS_VARIATION_DESCRIPTION);
    // The pieces are joined just so, by contract with installations in use.
    m_strHelpFilePath = L"\\lang\\" + g_pSandCastingRulesApp->GetLanguage() + L"\\lang\\english\\mfxkit.chm";
}

void CMFXSCWTVariationRule::InitializeParameters() {
    NoThrow([this] { CreateParameters(); });
}

void CMFXSCWTVariationRule::CreateParameters() {
    const ResourceSwitch resources;  // the parameter's label
    if (!FindParameterInArray(kVariationId))
        CreateParamStorageObject(TypeDouble, kVariationId, OperatorAtLeast, ParamLimit, true, false);
    CMfxParamStorage* pVariation = FindParameterInArray(kVariationId);
    if (pVariation && pVariation->GetValues<double>().IsEmpty())
        pVariation->GetValues<double>().Add(kDefaultVariation);
    if (g_pSandCastingRulesApp) m_strSummary = VariationSummary(FormatDouble(kDefaultVariation));
    m_bParametersCreated = true;
}

int CMFXSCWTVariationRule::Execute(MFXICadSys*, const CMfxData*, MFXResultSet*, int) {
    return -3;
}

// A record without the variation leaves the rule as it is, header included.
void CMFXSCWTVariationRule::PopulateFromXML(MfxXMLNode* pNode) {
    NoThrow([&] {
        CMfxParamStorage* pVariation = FindParameterInArray(kVariationId);
        if (!pVariation || !pNode || !FindParameterElement(*pNode, kVariationId)) return;
        pVariation->GetValues<double>().RemoveAll();
        ReadRuleRecord(this, pNode);
        UpdateVariationSummary();
    });
}

MfxXMLNode* CMFXSCWTVariationRule::BuildXMLNode() {
    MfxXMLNode* pNode = nullptr;
    NoThrow([&] {
        pNode = WriteRuleRecord(this);
        UpdateVariationSummary();
    });
    return pNode;
}

void CMFXSCWTVariationRule::PrepareRule() {}

// The variation has no unit, and the rule keeps none.
void CMFXSCWTVariationRule::ConvertUnits(const UnitPair&, const UnitPair&) {
    NoThrow([this] { UpdateVariationSummary(); });
}

bool CMFXSCWTVariationRule::AcceptRuleData(const CMfxData*) {
    return true;
}

void CMFXSCWTVariationRule::ConfigureRuleDialog() {
    NoThrow([this] {
        const ResourceSwitch resources;
        RunVariationDialog(*this);
        UpdateVariationSummary();
    });
}

int CMFXSCWTVariationRule::ExecuteAlternate(MFXICadSys*, const CMfxData*, MFXResultSet*, int) {
    return 0;
}

void CMFXSCWTVariationRule::SetRuleStatusForAssemblyModel(int) {}

void CMFXSCWTVariationRule::UpdateVariationSummary() {
    const CMfxParamStorage* pVariation = FindParameterInArray(kVariationId);
    if (!g_pSandCastingRulesApp || !pVariation) return;
    const MfxArray<double>& values = pVariation->GetValues<double>();
    m_strSummary = VariationSummary(values.IsEmpty() ? CString() : FormatDouble(values[0]));
}
