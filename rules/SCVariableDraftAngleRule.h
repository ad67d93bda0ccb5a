#pragma once

#include "MfxRule.h"
#include "RuleParameters.h"

// Draft angle by size: a table of size bands, each with three draft angles. The table is one parameter; each
// of its rows has five cells of text: lower bound, upper bound (lengths), first, second and third draft
// angle. The cells are in the rule's units, m_nLengthUnit and m_nAngleUnit.
class CMFXSCVariableDraftAngleRule : public CMfxRule {
  public:
    static constexpr int kRuleId = kDraftAngleRuleId;

    // A rule with the default table, in millimetres and degrees. Without an application object its header is
    // empty.
    CMFXSCVariableDraftAngleRule();

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

    using CMfxRule::operator=;

  private:
    void CreateParameters();
    MfxArray<MfxTableRow>* FindTable();
    void ReloadSummary();
};
