#include "UniformThicknessRule.h"

#include "MFXUnitConvertor.h"
#include "NoThrow.h"
#include "NumberText.h"
#include "ParameterXml.h"
#include "RecordNames.h"
#include "ResourceSwitch.h"
#include "RuleConstraints.h"
#include "RuleDialogs.h"
#include "RuleHeader.h"
#include "RuleRecord.h"
#include "SandCastingRulesApp.h"
#include "UnitLabels.h"
#include "XmlNumber.h"
#include "resource.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

struct ThicknessLimits {
    double minimumMm;
    double maximumMm;
};

constexpr ThicknessLimits kSandCastingLimits{6.0, 16.0};
constexpr ThicknessLimits kOtherLimits{2.0, 3.0};

constexpr ParameterSpec kLimitSpecs[] = {
    {kThicknessMinId, OperatorAtLeast, ParamLimit},
    {kThicknessMaxId, OperatorAtMost, ParamLimit},
};
constexpr long kLimitIds[] = {kThicknessMinId, kThicknessMaxId};

ThicknessLimits DefaultLimits(int nCategory) {
    return nCategory == CategorySandCasting ? kSandCastingLimits : kOtherLimits;
}

std::unique_ptr<MfxXMLNode> FindLastParameter(const MfxXMLNode& record, long nParamId) {
    const std::unique_ptr<MfxXMLNodeList> pElements(record.GetNodeList(kParameterTag));
    for (long i = pElements->GetSize() - 1; i >= 0; --i)
        if (ParameterIdOf(*(*pElements)[i]) == nParamId)
            return std::make_unique<MfxXMLNode>(*(*pElements)[i]);
    return nullptr;
}

// Older records switch their material table on by a parameter of its own.
bool IsLegacyTableOn(const MfxXMLNode& record) {
    const std::unique_ptr<MfxXMLNode> pSwitch = FindLastParameter(record, kLegacyMaterialSwitchId);
    const std::unique_ptr<MfxXMLNode> pValue(pSwitch ? pSwitch->SelectSingleNode(kValueTag) : nullptr);
    double value = 0.0;
    if (pValue) pValue->GetNodeValueInDouble(value);
    return std::fabs(value - 1.0) < kTolerance;
}

// Older records have a switch before the limit. Two numbers are switch and limit, three are switch and two
// limits. The switch is on when it is exactly 1.
void NormalizeLegacyValues(CMfxParamStorage& limit) {
    MfxArray<double>& values = limit.GetValues<double>();
    if (values.GetCount() != 2 && values.GetCount() != 3) return;
    limit.m_bStatus = values[0] == 1.0;
    values.RemoveAt(0);
}

// One half of the summary; empty for a limit that is off or has no number.
CString LimitSummary(const CMfxParamStorage& limit, MfxOperator_e op, UINT nFormatId,
                     const CString& strUnit) {
    const MfxArray<double>& values = limit.GetValues<double>();
    if (!limit.m_bStatus || values.IsEmpty()) return CString();
    const CString strLabel =
        limit.m_operator == op ? LoadLocalizedString(IDS_UNIFORM_SUMMARY_LABEL) : CString();
    CString strSummary;
    strSummary.Format(LoadLocalizedString(nFormatId), strLabel.GetString(),
                      FormatDouble(values[0]).GetString(), strUnit.GetString());
    return strSummary;
}

void ConvertLimit(CMfxParamStorage& limit, int nFromUnit, int nToUnit) {
    MfxArray<double>& values = limit.GetValues<double>();
    if (values.IsEmpty()) return;
    values[0] =
        CMFXUnitConvertor().ConversionFromOneUnitToAnother(values[0], QuantityLength, nFromUnit, nToUnit);
}

// The first number of a parameter; null when there is none.
const double* FindNumber(const CMfxParamStorage* pParameter) {
    if (!pParameter || pParameter->GetValues<double>().IsEmpty()) return nullptr;
    return &pParameter->GetValues<double>()[0];
}

// Texts have six decimals. One that was not changed must not cut the number's other digits.
void KeepDigits(double& value, const double* pBefore) {
    if (pBefore && FormatDouble(value) == FormatDouble(*pBefore)) value = *pBefore;
}

// The length unit of the record's document. Documents in use rely on this: only the first character counts,
// so code 10 reads as 1. The code is 0 without a parent or a digit.
int ReadParentUnit(const MfxXMLNode& record) {
    const std::unique_ptr<MfxXMLNode> pParent(record.GetParentNode());
    const CString strUnit = pParent ? pParent->GetAttribute(kUnitAttribute) : CString();
    std::int32_t nUnit = 0;
    if (IsNumericText(strUnit.Left(1))) ParseInteger(strUnit.Left(1), nUnit);
    return nUnit;
}

}  // namespace

CMFXUniformThicknessRule::CMFXUniformThicknessRule(int nRuleId) {
    SetHeader(LoadLocalizedString(IDS_PROCESS), kModuleName, CategorySandCasting, nRuleId);
    CreateParameters(nullptr);
}

CMFXUniformThicknessRule::CMFXUniformThicknessRule(const CString& strProcess, const CString& strModule,
                                                   MFXRuleCategory_e category, int nRuleId,
                                                   MfxXMLNode* pRecord) {
    SetHeader(strProcess, strModule, category, nRuleId);
    CreateParameters(pRecord);
}

void CMFXUniformThicknessRule::SetHeader(const CString& strProcess, const CString& strModule,
                                         MFXRuleCategory_e category, int nRuleId) {
    if (!g_pSandCastingRulesApp) return;
    SetRuleHeader(*this, IDS_UNIFORM_RULE_NAME, strProcess, strModule, category, nRuleId);
    m_strSummary.Format(
        LoadLocalizedString(IDS_UNIFORM_SUMMARY_MINIMUM) + LoadLocalizedString(IDS_UNIFORM_SUMMARY_MAXIMUM),
        L"", L"", L"", L"", L"", L"");
}

void CMFXUniformThicknessRule::CreateParameters(const MfxXMLNode* pRecord) {
    const ResourceSwitch resources;  // the parameters' labels
    CreateLimits();
    UpdateSummary();  // shows the default limits until the record is read
    if (pRecord) {
        CreateConstraintsOfLegacyTable(*pRecord);
        CreateConstraints(*pRecord);
    }
    m_bParametersCreated = true;
}

void CMFXUniformThicknessRule::CreateLimits() {
    const ThicknessLimits limits = DefaultLimits(GetRuleCategoryEnum());
    for (const ParameterSpec& spec : kLimitSpecs)
        if (CMfxParamStorage* pLimit =
                CreateParamStorageObject(TypeDouble, spec.nParamId, spec.op, spec.paramType, true, false))
            pLimit->GetValues<double>().SetFirst(spec.nParamId == kThicknessMinId ? limits.minimumMm
                                                                                  : limits.maximumMm);
}

// Older records keep the materials as rows of a table: name, lower limit, upper limit.
void CMFXUniformThicknessRule::CreateConstraintsOfLegacyTable(const MfxXMLNode& record) {
    const std::unique_ptr<MfxXMLNode> pTable = FindLastParameter(record, kLegacyMaterialTableId);
    if (!pTable) return;
    const bool bActive = IsLegacyTableOn(record);
    const std::unique_ptr<MfxXMLNodeList> pRows(pTable->GetNodeList(kValueTag));
    for (long i = 0; i < pRows->GetSize(); ++i) {
        const MfxXMLNode& row = *(*pRows)[i];
        const CMFXConstraint* pConstraint = CreateConstraintWithParameters(
            *this, row.GetAttribute(CellAttribute(LegacyTableCell::Material)), bActive, kLimitSpecs, bActive);
        if (!pConstraint) continue;
        pConstraint->FindParameterInArray(kThicknessMinId)
            ->GetValues<double>()
            .SetFirst(ParseDouble(row.GetAttribute(CellAttribute(LegacyTableCell::Minimum))));
        pConstraint->FindParameterInArray(kThicknessMaxId)
            ->GetValues<double>()
            .SetFirst(ParseDouble(row.GetAttribute(CellAttribute(LegacyTableCell::Maximum))));
    }
}

void CMFXUniformThicknessRule::CreateConstraints(const MfxXMLNode& record) {
    const std::unique_ptr<MfxXMLNodeList> pElements(record.GetNodeList(kConstraintTag));
    for (long i = 0; i < pElements->GetSize(); ++i) {
        ConstraintAttributes attributes;
        if (!ReadConstraintAttributes(*(*pElements)[i], attributes)) continue;
        const bool bActive = attributes.strStatus == L"1";
        CreateConstraintWithParameters(*this, attributes.strName, bActive, kLimitSpecs, bActive);
    }
}

// The constructors do the work: they know the record.
void CMFXUniformThicknessRule::InitializeParameters() {}

int CMFXUniformThicknessRule::Execute(MFXICadSys*, const CMfxData*, MFXResultSet*, int) {
    return -3;
}

void CMFXUniformThicknessRule::PopulateFromXML(MfxXMLNode* pNode) {
    NoThrow([&] {
        if (!pNode) return;
        for (const long nParamId : kLimitIds)
            if (CMfxParamStorage* pLimit = FindParameterInArray(nParamId))
                pLimit->GetValues<double>().RemoveAll();
        EmptyConstraintsForReading(*this, *pNode, kLimitIds);
        ReadRuleRecord(this, pNode);
        m_nLengthUnit = ReadParentUnit(*pNode);
        UpdateSummary();
    });
}

MfxXMLNode* CMFXUniformThicknessRule::BuildXMLNode() {
    MfxXMLNode* pNode = nullptr;
    NoThrow([&] {
        pNode = WriteRuleRecord(this);
        UpdateSummary();
    });
    return pNode;
}

void CMFXUniformThicknessRule::PrepareRule() {}

void CMFXUniformThicknessRule::ConvertUnits(const UnitPair& from, const UnitPair& to) {
    NoThrow([&] {
        CMfxParamStorage* pMinimum = FindParameterInArray(kThicknessMinId);
        CMfxParamStorage* pMaximum = FindParameterInArray(kThicknessMaxId);
        if (!pMinimum || !pMaximum) return;
        NormalizeLegacyValues(*pMinimum);
        NormalizeLegacyValues(*pMaximum);
        if (from.m_nLengthUnit != to.m_nLengthUnit) {
            ConvertLimit(*pMinimum, from.m_nLengthUnit, to.m_nLengthUnit);
            ConvertLimit(*pMaximum, from.m_nLengthUnit, to.m_nLengthUnit);
            for (const CMFXConstraint* pConstraint : m_constraintArray) {
                if (!HasParameters(*pConstraint, kLimitIds)) continue;
                for (const long nParamId : kLimitIds)
                    ConvertLimit(*pConstraint->FindParameterInArray(nParamId), from.m_nLengthUnit,
                                 to.m_nLengthUnit);
            }
        }
        m_nLengthUnit = to.m_nLengthUnit;
        m_nAngleUnit = to.m_nAngleUnit;
        UpdateSummary();
    });
}

bool CMFXUniformThicknessRule::AcceptRuleData(const CMfxData*) {
    return true;
}

void CMFXUniformThicknessRule::ConfigureRuleDialog() {
    NoThrow([this] {
        const ResourceSwitch resources;
        RunUniformThicknessDialog(*this);
        UpdateSummary();
    });
}

int CMFXUniformThicknessRule::ExecuteAlternate(MFXICadSys*, const CMfxData*, MFXResultSet*, int) {
    return 0;
}

void CMFXUniformThicknessRule::SetRuleStatusForAssemblyModel(int) {}

int CMFXUniformThicknessRule::GetMaterialStatus() const {
    return 0;
}

bool CMFXUniformThicknessRule::AreLimitsByMaterial() const {
    return !m_constraintArray.IsEmpty() && m_constraintArray[0]->m_bActive;
}

std::vector<MaterialLimitTexts> CMFXUniformThicknessRule::GetLimitsByMaterial() const {
    const auto text = [](const double* pNumber) { return pNumber ? FormatDouble(*pNumber) : CString(); };
    std::vector<MaterialLimitTexts> rows;
    for (const CMFXConstraint* pConstraint : m_constraintArray)
        rows.push_back({pConstraint->m_strName,
                        text(FindNumber(pConstraint->FindParameterInArray(kThicknessMinId))),
                        text(FindNumber(pConstraint->FindParameterInArray(kThicknessMaxId)))});
    return rows;
}

// With the digits of the material's numbers before.
MaterialLimits CMFXUniformThicknessRule::WithKeptDigits(MaterialLimits limits) const {
    for (const CMFXConstraint* pConstraint : m_constraintArray) {
        if (pConstraint->m_strName != limits.strMaterial) continue;
        KeepDigits(limits.minimum, FindNumber(pConstraint->FindParameterInArray(kThicknessMinId)));
        KeepDigits(limits.maximum, FindNumber(pConstraint->FindParameterInArray(kThicknessMaxId)));
    }
    return limits;
}

void CMFXUniformThicknessRule::SetLimitsByMaterial(std::vector<MaterialLimits> limits, bool bInForce) {
    for (MaterialLimits& material : limits) material = WithKeptDigits(material);
    ClearConstraints();
    for (const auto& [strMaterial, minimum, maximum] : limits) {
        const CMFXConstraint* pConstraint =
            CreateConstraintWithParameters(*this, strMaterial, bInForce, kLimitSpecs, bInForce);
        if (!pConstraint) continue;
        pConstraint->FindParameterInArray(kThicknessMinId)->GetValues<double>().SetFirst(minimum);
        pConstraint->FindParameterInArray(kThicknessMaxId)->GetValues<double>().SetFirst(maximum);
    }
}

void CMFXUniformThicknessRule::SetCommonLimit(long nParamId, double value, bool bInForce) {
    CMfxParamStorage* const pLimit = FindParameterInArray(nParamId);
    if (!pLimit) return;
    KeepDigits(value, FindNumber(pLimit));
    pLimit->GetValues<double>().SetFirst(value);
    pLimit->m_bStatus = bInForce;
}

// Names the limits that are on, or says that there are limits by material. Only the first material decides.
void CMFXUniformThicknessRule::UpdateSummary() {
    CMfxParamStorage* pMinimum = FindParameterInArray(kThicknessMinId);
    CMfxParamStorage* pMaximum = FindParameterInArray(kThicknessMaxId);
    if (!g_pSandCastingRulesApp || !pMinimum || !pMaximum) return;
    NormalizeLegacyValues(*pMinimum);
    NormalizeLegacyValues(*pMaximum);
    const CString strUnit = GetLengthUnitLabel(m_nLengthUnit);
    m_strSummary = LimitSummary(*pMinimum, OperatorAtLeast, IDS_UNIFORM_SUMMARY_MINIMUM, strUnit) +
                   LimitSummary(*pMaximum, OperatorAtMost, IDS_UNIFORM_SUMMARY_MAXIMUM, strUnit);
    if (AreLimitsByMaterial()) m_strSummary = LoadLocalizedString(IDS_UNIFORM_SUMMARY_BY_MATERIAL);
}
