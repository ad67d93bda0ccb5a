#include "RecordUpdate.h"

#include "ParameterXml.h"
#include "RuleParameters.h"

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
        child.nKey = child.strTag == kParameterTag ? ParameterIdOf(element) : positions[child.strTag]++;
        children.push_back(child);
    }
    return children;
}

// Finds the first child of a tag and key; lists can have very many.
class ChildIndex {
  public:
    explicit ChildIndex(const std::vector<Child>& children) {
        for (const Child& child : children) m_children[child.strTag].emplace(child.nKey, &child);
    }
    const Child* FindCounterpart(const Child& child) const {
        const auto sameTag = m_children.find(child.strTag);
        if (sameTag == m_children.end()) return nullptr;
        const auto found = sameTag->second.find(child.nKey);
        return found != sameTag->second.end() ? found->second : nullptr;
    }

  private:
    std::map<CString, std::map<std::int32_t, const Child*>> m_children;
};

// Whether an element that the rule did not write again was the rule's own: lists that have become shorter,
// and the material table of older records, which the uniform thickness rule writes as constraints.
bool IsDropped(const Child& child, const std::vector<Child>& newChildren) {
    if (child.strTag == kParameterTag) {
        const bool bLegacy = child.nKey == kLegacyMaterialTableId || child.nKey == kLegacyMaterialSwitchId;
        return bLegacy && std::any_of(newChildren.begin(), newChildren.end(), [](const Child& written) {
                   return written.strTag == kParameterTag && written.nKey == kThicknessMinId;
               });
    }
    for (const wchar_t* pszTag :
         {L"Constraint", L"Value", L"OperatorOption", L"Warning", L"Info", L"Unknown"})
        if (child.strTag == pszTag) return true;
    return false;
}

bool IsKeptAsItWas(const MfxXMLNode& old, const CString& strName, const CString& strValue) {
    CString strOld;
    const bool bHad = old.GetAttributeValue(strName, strOld);
    if (old.GetNodeName() == kConstraintTag && strName == L"Status") return bHad;
    return !bHad && strValue == L"-1";
}

void UpdateAttributes(MfxXMLNode& old, const MfxXMLNode& updated) {
    if (updated.GetNodeName() == L"Value")
        for (const CString& strName : old.GetAttributeNames())
            if (strName.Left(9) == L"Attribute") old.RemoveAttribute(strName);
    CString strValue;
    for (const CString& strName : updated.GetAttributeNames())
        if (updated.GetAttributeValue(strName, strValue) && !IsKeptAsItWas(old, strName, strValue))
            old.AddAttribute(strName, strValue);
}

}  // namespace

void UpdateRecord(MfxXMLNode& old, MfxXMLNode& updated) {
    UpdateAttributes(old, updated);
    const std::vector<Child> oldChildren = ChildrenOf(old);
    std::vector<Child> newChildren = ChildrenOf(updated);
    if (newChildren.empty() && old.GetNodeValue() != updated.GetNodeValue())
        old.SetNodeValue(updated.GetNodeValue());

    const ChildIndex oldIndex(oldChildren), newIndex(newChildren);
    const MfxXMLNode* pLast = nullptr;
    for (Child& child : newChildren) {
        if (const Child* pOld = oldIndex.FindCounterpart(child)) {
            MfxXMLNode element = pOld->element;
            UpdateRecord(element, child.element);
            pLast = &pOld->element;
        } else {
            old.InsertAfter(&child.element, pLast);
            pLast = &child.element;
        }
    }
    for (const Child& child : oldChildren)
        if (!newIndex.FindCounterpart(child) && IsDropped(child, newChildren)) old.RemoveNode(child.element);
}
