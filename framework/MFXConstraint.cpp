#include "MFXConstraint.h"

#include "MfxRule.h"
#include "MfxXMLDocument.h"
#include "ParameterXml.h"
#include "XmlNumber.h"

#include <memory>

CMFXConstraint::CMFXConstraint(CMfxRule& rule, MFXConstraintType_e type, const CString& strName, bool bActive)
    : m_type(type), m_strName(strName), m_bActive(bActive), m_rule(rule) {}

CMFXConstraint::~CMFXConstraint() {
    DeleteParameters(m_paramArray);
}

MfxXMLNode* CMFXConstraint::GetXMLNode() {
    MfxXMLDocument* pDocument = MfxXMLDocument::GetCurrent();
    std::unique_ptr<MfxXMLNode> pNode(pDocument ? pDocument->CreateNode(kConstraintTag) : nullptr);
    if (!pNode) return nullptr;
    pNode->AddAttribute(kTypeAttribute, FormatInteger(m_type));
    pNode->AddAttribute(kConstraintNameAttribute, m_strName);
    pNode->AddAttribute(kStatusAttribute, m_bActive ? L"1" : L"0");
    for (const MfxParamRecord& record : m_paramArray) {
        const ParameterSerializer* pSerializer = FindParameterSerializer(record.m_type);
        if (!pSerializer || !record.m_pStorage->IsSaved()) continue;
        const std::unique_ptr<MfxXMLNode> pParameter(pSerializer->write(*record.m_pStorage));
        pNode->AppendNode(pParameter.get());
    }
    return pNode.release();
}

void CMFXConstraint::PopulateFromXML(MfxXMLNode*& pNode) {
    for (const MfxParamRecord& record : m_paramArray)
        if (const ParameterSerializer* pSerializer = FindParameterSerializer(record.m_type))
            pSerializer->read(*record.m_pStorage, pNode);
}

void CMFXConstraint::AddParameter(CMfxParamStorage* pStorage) {
    if (!pStorage) return;
    m_paramArray.Add({pStorage->GetType(), pStorage});
    m_rule.ReleaseParamStorageObject(pStorage);
}

CMfxParamStorage* CMFXConstraint::FindParameterInArray(long nParamId) const {
    return FindParameter(m_paramArray, nParamId);
}
