#include "RecordUpdate.h"

#include "ParameterXml.h"
#include "RecordNames.h"
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
    CString tag;
    std::int32_t key;
};

std::vector<Child> ChildrenOf(const MfxXMLNode& parent) {
    std::vector<Child> children;
    std::map<CString, std::int32_t> positions;
    parent.ForEachChild(CString(), [&](const MfxXMLNode& element) {
        const CString tag = element.GetNodeName();
        children.push_back({element, tag, tag == kParameterTag ? ParameterIdOf(element) : positions[tag]++});
    });
    return children;
}

// Finds the first child of a tag and key; lists can have very many.
class ChildIndex {
  public:
    explicit ChildIndex(const std::vector<Child>& children) {
        for (const Child& child : children) m_children[child.tag].emplace(child.key, &child);
    }
    const Child* FindCounterpart(const Child& child) const { return Find(child.tag, child.key); }
    bool HasParameter(std::int32_t paramId) const { return Find(kParameterTag, paramId) != nullptr; }

  private:
    const Child* Find(const CString& tag, std::int32_t key) const {
        const auto sameTag = m_children.find(tag);
        if (sameTag == m_children.end()) return nullptr;
        const auto found = sameTag->second.find(key);
        return found != sameTag->second.end() ? found->second : nullptr;
    }

    std::map<CString, std::map<std::int32_t, const Child*>> m_children;
};

// Elements of which a record has as many as the rule has values, entries or constraints.
bool IsListElement(const Child& child) {
    const CString* const tags[] = {&kConstraintTag, &kValueTag, &kOperatorOptionTag,
                                   &kWarningTag,    &kInfoTag,  &kUnknownTag};
    return std::ranges::any_of(tags, [&](const CString* tag) { return child.tag == *tag; });
}

// The material table of older records, which the uniform thickness rule writes as constraints.
bool IsReplacedLegacyTable(const Child& child, const ChildIndex& written) {
    return child.tag == kParameterTag && IsLegacyMaterialTable(child.key) &&
           written.HasParameter(kThicknessMinId);
}

// A constraint's status is the record's own, and the rule writes -1 for a number that was missing.
bool IsKeptAsItWas(const MfxXMLNode& old, const CString& name, const CString& value) {
    CString oldValue;
    const bool isThere = old.GetAttributeValue(name, oldValue);
    if (old.GetNodeName() == kConstraintTag && name == kStatusAttribute) return isThere;
    return !isThere && value == L"-1";
}

void UpdateAttributes(MfxXMLNode& old, const MfxXMLNode& updated) {
    if (updated.GetNodeName() == kValueTag)
        for (const CString& name : old.GetAttributeNames())
            if (IsCellAttribute(name)) old.RemoveAttribute(name);
    for (const CString& name : updated.GetAttributeNames()) {
        const CString value = updated.GetAttribute(name);
        if (!IsKeptAsItWas(old, name, value)) old.AddAttribute(name, value);
    }
}

void UpdateText(MfxXMLNode& old, const MfxXMLNode& updated) {
    if (old.GetNodeValue() != updated.GetNodeValue()) old.SetNodeValue(updated.GetNodeValue());
}

// Updates each element that is there and inserts each new one behind the one before it.
void UpdateChildren(MfxXMLNode& old, const ChildIndex& oldIndex, std::vector<Child>& newChildren) {
    const MfxXMLNode* last = nullptr;
    for (Child& child : newChildren) {
        if (const Child* counterpart = oldIndex.FindCounterpart(child)) {
            MfxXMLNode element = counterpart->element;
            UpdateRecord(element, child.element);
            last = &counterpart->element;
        } else {
            old.InsertAfter(&child.element, last);
            last = &child.element;
        }
    }
}

// Removes what was the rule's own and was not written again.
void RemoveDropped(MfxXMLNode& old, const std::vector<Child>& oldChildren, const ChildIndex& newIndex) {
    for (const Child& child : oldChildren)
        if (!newIndex.FindCounterpart(child) &&
            (IsListElement(child) || IsReplacedLegacyTable(child, newIndex)))
            old.RemoveNode(child.element);
}

}  // namespace

void UpdateRecord(MfxXMLNode& old, MfxXMLNode& updated) {
    const std::vector<Child> oldChildren = ChildrenOf(old);
    std::vector<Child> newChildren = ChildrenOf(updated);
    const ChildIndex oldIndex(oldChildren), newIndex(newChildren);
    UpdateAttributes(old, updated);
    if (newChildren.empty()) UpdateText(old, updated);
    UpdateChildren(old, oldIndex, newChildren);
    RemoveDropped(old, oldChildren, newIndex);
}
