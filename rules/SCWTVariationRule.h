#pragma once

#include "MfxRule.h"
#include "RuleParameters.h"

// How much the wall thickness of a casting may vary: one number, without a unit.
class CMFXSCWTVariationRule : public CMfxRule {
  public:
    static constexpr int kRuleId = kVariationRuleId;

    // A rule of this module with the default variation.
    explicit CMFXSCWTVariationRule(int nRuleId);

    // A rule with the given header. Without an application object the header stays empty.
    CMFXSCWTVariationRule(const CString& strProcess, const CString& strModule, MFXRuleCategory_e category,
                          int nRuleId);

    void InitializeParameters() override;
    int Execute(MFXICadSys* pCadSys, const CMfxData* pData, MFXResultSet* pResults, int nMode) override;
    void PopulateFromXML(MfxXMLNode* pNode) override;
    MfxXMLNode* BuildXMLNode() override;
    void PrepareRule() override;
    void ConvertUnits(const UnitPair& from, const UnitPair& to) override;
    bool AcceptRuleData(const CMfxData* pData) override;
    void ConfigureRuleDialog() override;
    int ExecuteAlternate(MFXICadSys* pCadSys, const CMfxData* pData, MFXResultSet* pResults,
                         int nMode) override;
    void SetRuleStatusForAssemblyModel(int nStatus) override;

    using CMfxRule::operator=;

    CString m_strHelpFilePath;  // help file of the rule's dialog

  private:
    void SetHeader(const CString& strProcess, const CString& strModule, MFXRuleCategory_e category,
                   int nRuleId);
    void CreateParameters();
    void UpdateVariationSummary();
};
