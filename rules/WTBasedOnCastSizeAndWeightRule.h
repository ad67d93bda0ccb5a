#pragma once

#include "CastSizeAndWeightBand.h"
#include "MfxRule.h"
#include "RuleParameters.h"

#include <map>
#include <vector>

// Wall thickness by cast size and cast weight. Each material group is a constraint with five lists of
// numbers; band i is element i of each list.
class CMFXWTBasedOnCastSizeAndWeightRule : public CMfxRule {
  public:
    static constexpr int kRuleId = kSizeAndWeightRuleId;

    // A rule of this module. A record gives the rule its constraints, which PopulateFromXML fills.
    explicit CMFXWTBasedOnCastSizeAndWeightRule(MfxXMLNode* pRecord);

    // The same with the given header. Without an application object the header stays empty.
    CMFXWTBasedOnCastSizeAndWeightRule(const CString& strProcess, const CString& strModule,
                                       MFXRuleCategory_e category, int nRuleId, MfxXMLNode* pRecord);

    // Creates a constraint for each entry of m_mapGroupRows, and the mass unit.
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
    int GetMaterialStatus() const override;

    // Creates the constraint of a material group.
    void AddGroup(const CString& strGroup, bool bActive, const std::vector<CastSizeAndWeightBand>& bands);

    using CMfxRule::operator=;

    // With kRebuildConstraints, PopulateFromXML replaces the rule's constraints by the record's.
    static constexpr int kRebuildConstraints = 1;
    int m_nReloadMode = 0;
    std::map<CString, std::vector<CastSizeAndWeightBand>> m_mapGroupRows;  // by material group

  private:
    void SetHeader(const CString& strProcess, const CString& strModule, MFXRuleCategory_e category,
                   int nRuleId);
    void CreateParameters(const MfxXMLNode* pRecord);
    void CreateGroups();
    void CreateMassUnit();
    void CreateConstraints(const MfxXMLNode& record);
};
