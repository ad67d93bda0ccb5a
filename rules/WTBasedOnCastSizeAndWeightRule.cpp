#include "WTBasedOnCastSizeAndWeightRule.h"

#include "MFXUnitConvertor.h"
#include "NoThrow.h"
#include "NumberText.h"
#include "ParameterXml.h"
#include "ResourceSwitch.h"
#include "RuleConstraints.h"
#include "RuleDialogs.h"
#include "RuleHeader.h"
#include "RuleRecord.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

#include <memory>

namespace {

constexpr ParameterSpec kBandSpecs[] = {
    {kSizeMinId, OperatorEqual, ParamLimit},    {kSizeMaxId, OperatorAtMost, ParamLimit},
    {kWeightMinId, OperatorAtMost, ParamMass},  {kWeightMaxId, OperatorAtMost, ParamMass},
    {kThicknessId, OperatorAtMost, ParamLimit},
};

// The lists that a change of the length unit converts; weights keep their unit.
constexpr long kLengthIds[] = {kSizeMinId, kSizeMaxId, kThicknessId};

MfxArray<double>& NumbersOf(const CMFXConstraint& constraint, long nParamId) {
    return constraint.FindParameterInArray(nParamId)->GetValues<double>();
}

void FillBands(const CMFXConstraint& constraint, const std::vector<CastSizeAndWeightBand>& bands) {
    for (std::size_t cell = 0; cell < BandCell::Count; ++cell) {
        MfxArray<double>& numbers = NumbersOf(constraint, kBandSpecs[cell].nParamId);
        for (const CastSizeAndWeightBand& band : bands) numbers.Add(band.*kBandValues[cell]);
    }
}

// Whether the number is a mark, "not given" or "no upper limit", and so has no unit.
bool IsMarker(double value) {
    return value < -kTolerance || IsNoUpperLimit(value);
}

void ConvertBands(const CMFXConstraint& constraint, int nFromUnit, int nToUnit) {
    const int nBands = NumbersOf(constraint, kSizeMinId).GetCount();
    const CMFXUnitConvertor convertor;
    for (const long nParamId : kLengthIds) {
        MfxArray<double>& values = NumbersOf(constraint, nParamId);
        for (int i = 0; i < nBands && i < values.GetCount(); ++i)
            if (!IsMarker(values[i]))
                values[i] =
                    convertor.ConversionFromOneUnitToAnother(values[i], QuantityLength, nFromUnit, nToUnit);
    }
}

}  // namespace

CMFXWTBasedOnCastSizeAndWeightRule::CMFXWTBasedOnCastSizeAndWeightRule(MfxXMLNode* pRecord) {
    SetHeader(LoadLocalizedString(IDS_PROCESS), kModuleName, CategorySandCasting, kRuleId);
    CreateParameters(pRecord);
}

CMFXWTBasedOnCastSizeAndWeightRule::CMFXWTBasedOnCastSizeAndWeightRule(const CString& strProcess,
                                                                       const CString& strModule,
                                                                       MFXRuleCategory_e category,
                                                                       int nRuleId, MfxXMLNode* pRecord) {
    SetHeader(strProcess, strModule, category, nRuleId);
    CreateParameters(pRecord);
}

void CMFXWTBasedOnCastSizeAndWeightRule::SetHeader(const CString& strProcess, const CString& strModule,
                                                   MFXRuleCategory_e category, int nRuleId) {
    if (!g_pSandCastingRulesApp) return;
    SetRuleHeader(*this, IDS_SIZE_WEIGHT_RULE_NAME, strProcess, strModule, category, nRuleId);
    m_strSummary = LoadLocalizedString(IDS_SIZE_WEIGHT_SUMMARY);
}

// A fresh rule has no groups on purpose: they come from a record or from the dialog.
void CMFXWTBasedOnCastSizeAndWeightRule::InitializeParameters() {
    NoThrow([this] { CreateParameters(nullptr); });
}

void CMFXWTBasedOnCastSizeAndWeightRule::CreateParameters(const MfxXMLNode* pRecord) {
    const ResourceSwitch resources;  // the parameters' labels
    if (pRecord)
        CreateConstraints(*pRecord);
    else
        CreateGroups();
    CreateMassUnit();
    m_bParametersCreated = true;
}

void CMFXWTBasedOnCastSizeAndWeightRule::CreateGroups() {
    for (const auto& [strGroup, bands] : m_mapGroupRows) AddGroup(strGroup, strGroup == kDefaultGroup, bands);
}

void CMFXWTBasedOnCastSizeAndWeightRule::AddGroup(const CString& strGroup, bool bActive,
                                                  const std::vector<CastSizeAndWeightBand>& bands) {
    if (const CMFXConstraint* pConstraint =
            CreateConstraintWithParameters(*this, strGroup, bActive, kBandSpecs, true))
        FillBands(*pConstraint, bands);
}

void CMFXWTBasedOnCastSizeAndWeightRule::CreateMassUnit() {
    if (FindParameterInArray(kMassUnitId)) return;
    if (CMfxParamStorage* pUnit =
            CreateParamStorageObject(TypeText, kMassUnitId, OperatorEqual, ParamText, true, false))
        pUnit->GetValues<CString>().SetFirst(LoadLocalizedString(IDS_MASS_KILOGRAM));
}

// Every constraint of a record is active, whatever its status. The uniform thickness rule looks at the
// status.
void CMFXWTBasedOnCastSizeAndWeightRule::CreateConstraints(const MfxXMLNode& record) {
    const std::unique_ptr<MfxXMLNodeList> pElements(record.GetNodeList(kConstraintTag));
    for (long i = 0; i < pElements->GetSize(); ++i) {
        ConstraintAttributes attributes;
        if (ReadConstraintAttributes(*(*pElements)[i], attributes))
            CreateConstraintWithParameters(*this, attributes.strName, true, kBandSpecs, true);
    }
}

int CMFXWTBasedOnCastSizeAndWeightRule::Execute(MFXICadSys*, const CMfxData*, MFXResultSet*, int) {
    return 0;
}

void CMFXWTBasedOnCastSizeAndWeightRule::PopulateFromXML(MfxXMLNode* pNode) {
    NoThrow([&] {
        if (!pNode) return;
        const ResourceSwitch resources;  // the parameters' labels
        if (m_nReloadMode == kRebuildConstraints) {
            ClearConstraints();
            CreateConstraints(*pNode);
            CreateMassUnit();
            m_bParametersCreated = true;
        }
        if (CMfxParamStorage* pUnit = FindParameterInArray(kMassUnitId)) {
            EmptyConstraintsForReading(*this, *pNode, kBandParameterIds);
            pUnit->GetValues<CString>().RemoveAll();
            ReadRuleRecord(this, pNode);
        }
    });
}

MfxXMLNode* CMFXWTBasedOnCastSizeAndWeightRule::BuildXMLNode() {
    MfxXMLNode* pNode = nullptr;
    NoThrow([&] { pNode = WriteRuleRecord(this); });
    return pNode;
}

void CMFXWTBasedOnCastSizeAndWeightRule::PrepareRule() {}

void CMFXWTBasedOnCastSizeAndWeightRule::ConvertUnits(const UnitPair& from, const UnitPair& to) {
    NoThrow([&] {
        m_nLengthUnit = to.m_nLengthUnit;
        m_nAngleUnit = to.m_nAngleUnit;
        if (from.m_nLengthUnit == to.m_nLengthUnit) return;
        for (const CMFXConstraint* pConstraint : m_constraintArray)
            if (HasParameters(*pConstraint, kLengthIds))
                ConvertBands(*pConstraint, from.m_nLengthUnit, to.m_nLengthUnit);
    });
}

bool CMFXWTBasedOnCastSizeAndWeightRule::AcceptRuleData(const CMfxData*) {
    return true;
}

void CMFXWTBasedOnCastSizeAndWeightRule::ConfigureRuleDialog() {
    NoThrow([this] {
        const ResourceSwitch resources;
        RunSizeAndWeightDialog(*this);
    });
}

int CMFXWTBasedOnCastSizeAndWeightRule::ExecuteAlternate(MFXICadSys*, const CMfxData*, MFXResultSet*, int) {
    return -3;
}

int CMFXWTBasedOnCastSizeAndWeightRule::GetMaterialStatus() const {
    return 0;
}
