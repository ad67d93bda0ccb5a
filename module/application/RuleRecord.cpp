#include "RuleRecord.h"

#include "ParameterXml.h"
#include "RecordNames.h"
#include "ResourceSwitch.h"
#include "XmlNumber.h"
#include "resource.h"

#include <memory>

namespace {

MfxXMLDocument* g_pRuleDocument = nullptr;

CString FileNameOf(const CString& strPath) {
    return strPath.Mid(strPath.ReverseFind(L'\\') + 1);
}

void WriteAttributes(MfxXMLNode& node, const CMfxRule& rule) {
    node.AddAttribute(kNameAttribute, rule.m_strName);
    node.AddAttribute(kStatusAttribute, FormatInteger(rule.m_nStatus));
    node.AddAttribute(kLifeStatusAttribute, FormatInteger(rule.m_nLifeStatus));
    node.AddAttribute(kSummaryAttribute, rule.m_strSummary);
    node.AddAttribute(kModuleAttribute, rule.m_strModule);
    node.AddAttribute(kRuleModuleAttribute, rule.m_strRuleModule);
    node.AddAttribute(kRuleModuleFileNameAttribute, FileNameOf(rule.m_strRuleModuleFileName));
    node.AddAttribute(kSeverityAttribute, FormatInteger(rule.m_nSeverity));
    node.AddAttribute(kRuleCategoryAttribute, rule.m_strRuleCategory);
}

// Leaves out a parameter of an unknown type and goes on with the next one.
void WriteParameters(MfxXMLNode& node, const CMfxRule& rule) {
    for (const MfxParamRecord& record : rule.m_paramArray) {
        if (!record.m_pStorage->IsSaved()) continue;
        if (const ParameterSerializer* pSerializer = FindParameterSerializer(record.m_type)) {
            const std::unique_ptr<MfxXMLNode> pParameter(pSerializer->write(*record.m_pStorage));
            node.AppendNode(pParameter.get());
        } else {
            AfxMessageBox(IDS_UNKNOWN_PARAMETER_TYPE, MB_OK);
        }
    }
}

void WriteConstraints(MfxXMLNode& node, const CMfxRule& rule) {
    for (CMFXConstraint* pConstraint : rule.m_constraintArray) {
        const std::unique_ptr<MfxXMLNode> pNode(pConstraint->GetXMLNode());
        node.AppendNode(pNode.get());
    }
}

// A number that is missing or unreadable becomes -1, not the constructor's default.
int ReadNumberAttribute(const MfxXMLNode& node, const CString& strName) {
    int nNumber = -1;
    ParseInteger(node.GetAttribute(strName), nNumber);
    return nNumber;
}

void ReadAttributes(const MfxXMLNode& node, CMfxRule& rule) {
    node.GetAttributeValue(kNameAttribute, rule.m_strName);
    node.GetAttributeValue(kModuleAttribute, rule.m_strModule);
    node.GetAttributeValue(kRuleModuleAttribute, rule.m_strRuleModule);
    node.GetAttributeValue(kRuleModuleFileNameAttribute, rule.m_strRuleModuleFileName);
    rule.m_nStatus = ReadNumberAttribute(node, kStatusAttribute);
    rule.m_nLifeStatus = ReadNumberAttribute(node, kLifeStatusAttribute);
    rule.m_nSeverity = ReadNumberAttribute(node, kSeverityAttribute);
}

// Returns false after a parameter of an unknown type.
bool ReadParameters(const MfxXMLNode& node, CMfxRule& rule) {
    for (const MfxParamRecord& record : rule.m_paramArray) {
        const ParameterSerializer* pSerializer = FindParameterSerializer(record.m_type);
        if (!pSerializer) {
            AfxMessageBox(IDS_UNKNOWN_PARAMETER_TYPE, MB_OK);
            return false;
        }
        pSerializer->read(*record.m_pStorage, &node);
    }
    return true;
}

// A record of another version of the rule can have other constraints: then the rule keeps its own.
void ReadConstraints(const MfxXMLNode& node, CMfxRule& rule) {
    const std::unique_ptr<MfxXMLNodeList> pElements(node.GetNodeList(kConstraintTag));
    if (!pElements || pElements->GetSize() != rule.m_constraintArray.GetCount()) return;
    for (int i = 0; i < rule.m_constraintArray.GetCount(); ++i) {
        MfxXMLNode* pElement = (*pElements)[i];
        rule.m_constraintArray[i]->PopulateFromXML(pElement);
    }
}

}  // namespace

void SetRuleDocument(MfxXMLDocument* pDocument) {
    g_pRuleDocument = pDocument;
}

MfxXMLNode* WriteRuleRecord(CMfxRule* pRule) {
    if (!pRule || !g_pRuleDocument) return nullptr;
    const ResourceSwitch resources;
    const CurrentDocumentScope document(g_pRuleDocument);
    std::unique_ptr<MfxXMLNode> pNode(g_pRuleDocument->CreateNode(kRuleTag));
    if (!pNode) return nullptr;
    WriteAttributes(*pNode, *pRule);
    WriteParameters(*pNode, *pRule);
    WriteConstraints(*pNode, *pRule);
    return pNode.release();
}

void ReadRuleRecord(CMfxRule* pRule, MfxXMLNode* pNode) {
    if (!pRule || !pNode) return;
    const ResourceSwitch resources;
    ReadAttributes(*pNode, *pRule);
    if (!ReadParameters(*pNode, *pRule)) return;
    ReadConstraints(*pNode, *pRule);
    pRule->m_bPopulated = true;
    pRule->PostPopulate();
}
