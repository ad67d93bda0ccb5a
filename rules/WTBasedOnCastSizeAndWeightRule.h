#pragma once

#include "MfxRule.h"

#include <map>
#include <vector>

// One row of a material group: the wall thickness that a casting of that size and weight needs at least.
// Sizes and thickness are in the rule's length unit, weights in the unit that parameter kMassUnitId names; -1
// is not given.
struct CastSizeAndWeightBand {
    double sizeMin;
    double sizeMax;
    double weightMin;
    double weightMax;
    double thickness;
};

// Wall thickness by cast size and cast weight. Each material group is a constraint with five lists of
// numbers, of which element i makes band i.
class CMFXWTBasedOnCastSizeAndWeightRule : public CMfxRule {
  public:
    static constexpr int kRuleId = 19020;

    // A rule of this module; with a record its constraints are created from it, PopulateFromXML fills them.
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
    int ExecuteAlternate(MFXICadSys* pCadSys, const CMfxData* pData, MFXResultSet* pResults,
                         int nMode) override;
    int GetMaterialStatus() const override;

    using CMfxRule::operator=;

    static constexpr int kRebuildConstraints = 1;
    int m_nReloadMode =
        0;  // kRebuildConstraints: PopulateFromXML takes the record's constraints instead of its own
    std::map<CString, std::vector<CastSizeAndWeightBand>> m_mapGroupRows;  // by material group

  private:
    void SetHeader(const CString& strProcess, const CString& strModule, MFXRuleCategory_e category,
                   int nRuleId);
    void CreateParameters(const MfxXMLNode* pRecord);
    void CreateMassUnit();
    void CreateConstraints(const MfxXMLNode& record);
};
