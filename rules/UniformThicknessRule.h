#pragma once

#include "MaterialLimitsCheck.h"
#include "MfxRule.h"
#include "RuleParameters.h"

// Wall thickness between two limits, in the rule's length unit m_nLengthUnit; optionally limits per material,
// each a constraint named after the material with a pair of limits of its own.
class CMFXUniformThicknessRule : public CMfxRule {
  public:
    static constexpr int kRuleId = kUniformThicknessRuleId;

    // A rule of this module with the default limits.
    explicit CMFXUniformThicknessRule(int nRuleId);

    // A rule with the given header. A record, of the older form too, gives the rule its constraints, which
    // PopulateFromXML fills. Without an application object the header stays empty.
    CMFXUniformThicknessRule(const CString& strProcess, const CString& strModule, MFXRuleCategory_e category,
                             int nRuleId, MfxXMLNode* pRecord);

    void InitializeParameters() override;  // nothing: the constructors know the record
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
    int GetMaterialStatus() const override;

    using CMfxRule::operator=;

    // Whether the limits by material are in force. The first material decides.
    bool AreLimitsByMaterial() const;
    // As a dialog shows them; a limit that a record lacks is empty.
    std::vector<MaterialLimitTexts> GetLimitsByMaterial() const;
    // Replaces all materials. A number that shows the same digits as the one before stays as it was.
    void SetLimitsByMaterial(std::vector<MaterialLimits> limits, bool bInForce);

    // A limit of all materials: kThicknessMinId or kThicknessMaxId. A number that shows the same digits as
    // the one before stays as it was.
    void SetCommonLimit(long nParamId, double value, bool bInForce);

  private:
    void SetHeader(const CString& strProcess, const CString& strModule, MFXRuleCategory_e category,
                   int nRuleId);
    void CreateParameters(const MfxXMLNode* pRecord);
    void CreateLimits();
    void CreateConstraintsOfLegacyTable(const MfxXMLNode& record);
    void CreateConstraints(const MfxXMLNode& record);
    MaterialLimits WithKeptDigits(MaterialLimits limits) const;
    void UpdateSummary();
};
