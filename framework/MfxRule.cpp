#include "MfxRule.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace {

const wchar_t* CategoryText(MFXRuleCategory_e category) {
    switch (category) {
        case CategoryInjectionMoulding:
            return L"Injection Moulding";
        case CategorySandCasting:
            return L"Sand Casting";
        default:
            return L"";
    }
}

// What a rule says of itself, but for its category.
void CopyHeader(const CMfxRule& from, CMfxRule& to) {
    to.m_strName = from.m_strName;
    to.m_strDisplayName = from.m_strDisplayName;
    to.m_strSummary = from.m_strSummary;
    to.m_strModule = from.m_strModule;
    to.m_strRuleCategory = from.m_strRuleCategory;
    to.m_strRuleModule = from.m_strRuleModule;
    to.m_strRuleModuleFileName = from.m_strRuleModuleFileName;
    to.m_processList.RemoveAll();
    for (POSITION pos = from.m_processList.GetHeadPosition(); pos;)
        to.m_processList.AddTail(from.m_processList.GetNext(pos));
    to.m_nStatus = from.m_nStatus;
    to.m_nSeverity = from.m_nSeverity;
    to.m_nLifeStatus = from.m_nLifeStatus;
    to.m_bPopulated = from.m_bPopulated;
    to.m_nRuleId = from.m_nRuleId;
    to.m_nLengthUnit = from.m_nLengthUnit;
    to.m_nAngleUnit = from.m_nAngleUnit;
    to.m_strDescription = from.m_strDescription;
    to.m_strDialogImage = from.m_strDialogImage;
    to.m_bParametersCreated = from.m_bParametersCreated;
}

}  // namespace

CMfxRule::CMfxRule() = default;

CMfxRule::~CMfxRule() {
    ClearConstraints();
    DeleteParameters(m_paramArray);
}

void CMfxRule::InitializeParameters() {}
int CMfxRule::Execute(MFXICadSys*, const CMfxData*, MFXResultSet*, int) {
    return 0;
}
void CMfxRule::PopulateFromXML(MfxXMLNode*) {}
MfxXMLNode* CMfxRule::BuildXMLNode() {
    return nullptr;
}
void CMfxRule::PrepareRule() {}
void CMfxRule::ConvertUnits(const UnitPair&, const UnitPair&) {}
bool CMfxRule::AcceptRuleData(const CMfxData*) {
    return true;
}
void CMfxRule::ConfigureRuleDialog() {}
void CMfxRule::ConfigureRule(HBITMAP) {
    ConfigureRuleDialog();
}
void CMfxRule::SetDialogImageInfo(CString strImage) {
    m_strDialogImage = std::move(strImage);
}
int CMfxRule::ExecuteAlternate(MFXICadSys*, const CMfxData*, MFXResultSet*, int) {
    return 0;
}

CMfxRule& CMfxRule::operator=(CMfxRule* pOther) {
    if (!pOther || pOther == this) return *this;
    CopyHeader(*pOther, *this);
    m_category = pOther->m_category;

    MfxParamArray params = CloneParameters(pOther->m_paramArray);
    DeleteParameters(m_paramArray);
    m_paramArray = std::move(params);
    ClearConstraints();
    for (const CMFXConstraint* pConstraint : pOther->m_constraintArray) {
        CMFXConstraint* pCopy =
            CreateConstraintObject(pConstraint->m_type, pConstraint->m_strName, pConstraint->m_bActive);
        pCopy->m_paramArray = CloneParameters(pConstraint->m_paramArray);
    }
    return *this;
}

CMfxParamStorage* CMfxRule::FindParameterInArray(long nParamId) {
    return FindParameter(m_paramArray, nParamId);
}
void CMfxRule::SetRuleStatusForAssemblyModel(int nStatus) {
    m_nStatus = nStatus;
}
bool CMfxRule::ValidateInputData() {
    return true;
}
CString CMfxRule::GetRequiredInputData() const {
    return CString();
}
void CMfxRule::SetInputData(CString&) {}
void CMfxRule::SetPreExecutionData(CMfxData*&) {}
int CMfxRule::GetRuleId() const {
    return m_nRuleId;
}
int CMfxRule::GetMaterialStatus() const {
    return -1;
}
void CMfxRule::PostPopulate() {}
int CMfxRule::GetCutterStatus() const {
    return 0;
}
void CMfxRule::Heal(MFXICadSys*, const CMfxData*&, const MFXResultSet*&) const {}
bool CMfxRule::IsRuleParametric() const {
    return !m_paramArray.IsEmpty();
}

bool CMfxRule::ValidateInputParameters(std::map<long, double> values) {
    return std::all_of(values.begin(), values.end(),
                       [this](const auto& value) { return FindParameterInArray(value.first) != nullptr; });
}

void CMfxRule::InitConstraints(MfxXMLNode*, const std::vector<long>&) {}

void CMfxRule::GetConstraintParameters(
    const std::vector<long>& paramIds,
    std::map<CString, std::vector<ConstraintParametersStruct>>& parameters) {
    for (const CMFXConstraint* pConstraint : m_constraintArray) {
        if (!pConstraint->m_bActive) continue;
        for (const long nParamId : paramIds) {
            const CMfxParamStorage* pStorage = pConstraint->FindParameterInArray(nParamId);
            if (!pStorage || pStorage->GetType() != TypeDouble) continue;
            const MfxArray<double>& values = pStorage->GetValues<double>();
            parameters[pConstraint->m_strName].push_back({nParamId, {values.begin(), values.end()}});
        }
    }
}

CMfxParamStorage* CMfxRule::FindParameterInConstraintArray(const CString& strConstraint, long nParamId) {
    for (const CMFXConstraint* pConstraint : m_constraintArray)
        if (pConstraint->m_strName == strConstraint) return pConstraint->FindParameterInArray(nParamId);
    return nullptr;
}

void CMfxRule::SetRuleCategory(MFXRuleCategory_e category) {
    m_category = category;
    m_strRuleCategory = CategoryText(category);
}

int CMfxRule::GetRuleCategoryEnum() const {
    return m_category;
}

CMfxParamStorage* CMfxRule::CreateParamStorageObject(Type_e type, long nParamId, MfxOperator_e op,
                                                     MfxParamType_e paramType, bool bActive, bool bReadOnly) {
    if (type < TypeBoolean || type > TypeTableRow) return nullptr;
    auto pStorage = std::make_unique<CMfxParamStorage>(type);
    pStorage->m_strName.LoadString(static_cast<UINT>(nParamId));
    pStorage->m_nParamId = nParamId;
    pStorage->m_operator = op;
    pStorage->m_paramType = paramType;
    pStorage->m_bStatus = bActive;
    pStorage->m_bReadOnly = bReadOnly;
    m_paramArray.Add({type, pStorage.get()});
    return pStorage.release();
}

void CMfxRule::ReleaseParamStorageObject(CMfxParamStorage* pStorage) {
    for (int i = 0; i < m_paramArray.GetCount(); ++i)
        if (m_paramArray[i].m_pStorage == pStorage) return m_paramArray.RemoveAt(i);
}

CMFXConstraint* CMfxRule::CreateConstraintObject(MFXConstraintType_e type, CString strName, bool bActive) {
    auto pConstraint = std::make_unique<CMFXConstraint>(*this, type, strName, bActive);
    m_constraintArray.Add(pConstraint.get());
    return pConstraint.release();
}

void CMfxRule::DeleteConstraintObject(CMFXConstraint* pConstraint) {
    for (int i = 0; i < m_constraintArray.GetCount(); ++i) {
        if (m_constraintArray[i] != pConstraint) continue;
        m_constraintArray.RemoveAt(i);
        delete pConstraint;
        return;
    }
}

void CMfxRule::ClearConstraints() {
    for (const CMFXConstraint* pConstraint : m_constraintArray) delete pConstraint;
    m_constraintArray.RemoveAll();
}
