#include "RuleConstraints.h"

#include "RecordNames.h"

#include <algorithm>
#include <memory>

bool ReadConstraintAttributes(const MfxXMLNode& element, ConstraintAttributes& attributes) {
    CString strType;
    return element.GetAttributeValue(kTypeAttribute, strType) &&
           element.GetAttributeValue(kConstraintNameAttribute, attributes.strName) &&
           element.GetAttributeValue(kStatusAttribute, attributes.strStatus);
}

CMFXConstraint* CreateConstraintWithParameters(CMfxRule& rule, const CString& strName, bool bActive,
                                               std::span<const ParameterSpec> specs, bool bParametersActive) {
    CMFXConstraint* pConstraint = rule.CreateConstraintObject(ConstraintByMaterial, strName, bActive);
    if (!pConstraint) return nullptr;
    for (const ParameterSpec& spec : specs) {
        CMfxParamStorage* pStorage = rule.CreateParamStorageObject(TypeDouble, spec.nParamId, spec.op,
                                                                   spec.paramType, bParametersActive, false);
        if (!pStorage) {
            rule.DeleteConstraintObject(pConstraint);
            return nullptr;
        }
        pConstraint->AddParameter(pStorage);
    }
    return pConstraint;
}

bool HasParameters(const CMFXConstraint& constraint, std::span<const long> paramIds) {
    return std::ranges::all_of(paramIds,
                               [&](long nParamId) { return constraint.FindParameterInArray(nParamId); });
}

void EmptyConstraintsForReading(CMfxRule& rule, const MfxXMLNode& record, std::span<const long> paramIds) {
    const std::unique_ptr<MfxXMLNodeList> pElements(record.GetNodeList(kConstraintTag));
    if (pElements->GetSize() != rule.m_constraintArray.GetCount()) return;
    for (const CMFXConstraint* pConstraint : rule.m_constraintArray) {
        if (!HasParameters(*pConstraint, paramIds)) continue;
        for (const long nParamId : paramIds)
            pConstraint->FindParameterInArray(nParamId)->GetValues<double>().RemoveAll();
    }
}
