#include "RecordUpdate.h"

#include "ParameterXml.h"
#include "RuleParameters.h"
#include "XmlNumber.h"

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

namespace {

// A child element with what it is recognised by among its siblings: its tag, and the id of a parameter or the
// position among those of its tag.
struct Child {
    MfxXMLNode element;
    CString strTag;
    std::int32_t nKey;
};

std::vector<Child> ChildrenOf(const MfxXMLNode& parent) {
    std::vector<Child> children;
    std::map<CString, std::int32_t> positions;
    const std::unique_ptr<MfxXMLNodeList> pElements(parent.GetNodeList(L""));
    for (long i = 0; i < pElements->GetSize(); ++i) {
        const MfxXMLNode& element = *(*pElements)[i];
        Child child{element, element.GetNodeName(), 0};
        if (child.strTag == kParameterTag) {
            CString strType;
            element.GetAttributeValue(L"Type", strType);
            ParseInteger(strType, child.nKey);
        } else {
            child.nKey = positions[child.strTag]++;
        }
        children.push_back(child);
    }
    return children;
}

const Child* FindCounterpart(const std::vector<Child>& children, const Child& child) {
    const auto found = std::find_if(children.begin(), children.end(), [&](const Child& candidate) {
        return candidate.nKey == child.nKey && candidate.strTag == child.strTag;
    });
    return found != children.end() ? &*found : nullptr;
}

// Whether an element that the rule did not write again was the rule's own: lists that have become shorter,
// and the parameters of older records, which the rule writes in another form.
bool IsDropped(const Child& child) {
    if (child.strTag == kParameterTag)
        return child.nKey == kLegacyMaterialTableId || child.nKey == kLegacyMaterialSwitchId;
    for (const wchar_t* pszTag :
         {L"Constraint", L"Value", L"OperatorOption", L"Warning", L"Info", L"Unknown"})
        if (child.strTag == pszTag) return true;
    return false;
}

void UpdateAttributes(MfxXMLNode& old, const MfxXMLNode& updated) {
    if (updated.GetNodeName() == L"Value")
        for (const CString& strName : old.GetAttributeNames())
            if (strName.Left(9) == L"Attribute") old.RemoveAttribute(strName);
    CString strValue;
    for (const CString& strName : updated.GetAttributeNames())
        if (updated.GetAttributeValue(strName, strValue)) old.AddAttribute(strName, strValue);
}

}  // namespace

void UpdateRecord(MfxXMLNode& old, MfxXMLNode& updated) {
    UpdateAttributes(old, updated);
    const std::vector<Child> oldChildren = ChildrenOf(old);
    std::vector<Child> newChildren = ChildrenOf(updated);
    if (newChildren.empty() && old.GetNodeValue() != updated.GetNodeValue())
        old.SetNodeValue(updated.GetNodeValue());

    const MfxXMLNode* pLast = nullptr;
    for (Child& child : newChildren) {
        if (const Child* pOld = FindCounterpart(oldChildren, child)) {
            MfxXMLNode element = pOld->element;
            UpdateRecord(element, child.element);
            pLast = &pOld->element;
        } else {
            old.InsertAfter(&child.element, pLast);
            pLast = &child.element;
        }
    }
    for (const Child& child : oldChildren)
        if (IsDropped(child) && !FindCounterpart(newChildren, child)) old.RemoveNode(child.element);
}
