#include "RecordUpdate.h"

#include "ParameterXml.h"
#include "RecordNames.h"
#include "RuleParameters.h"

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

namespace {

// A child element with what it is recognised by among its siblings: its tag and, of a constraint, its name;
// and the id of a parameter or the position among those of the same tag and name.
struct Child {
    MfxXMLNode element;
    CString tag;
    CString tagAndName;
    std::int32_t key;
};

std::vector<Child> ChildrenOf(const MfxXMLNode& parent) {
    std::vector<Child> children;
    std::map<CString, std::int32_t> positions;
    parent.ForEachChild(CString(), [&](const MfxXMLNode& element) {
        const CString tag = element.GetNodeName();
        CString tagAndName = tag;
        if (tag == kConstraintTag) tagAndName += L" " + element.GetAttribute(kConstraintNameAttribute);
        const std::int32_t key = tag == kParameterTag ? ParameterIdOf(element) : positions[tagAndName]++;
        children.push_back({element, tag, tagAndName, key});
    });
    return children;
}

// Finds the first child of a tag and key; lists can have very many.
class ChildIndex {
  public:
    explicit ChildIndex(const std::vector<Child>& children) {
        for (const Child& child : children) m_children[child.tagAndName].emplace(child.key, &child);
    }
    const Child* FindCounterpart(const Child& child) const { return Find(child.tagAndName, child.key); }
    bool HasParameter(std::int32_t paramId) const { return Find(kParameterTag, paramId) != nullptr; }

  private:
    const Child* Find(const CString& tagAndName, std::int32_t key) const {
        const auto sameTag = m_children.find(tagAndName);
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

// The rule writes -1 for a number that was missing.
bool IsKeptAsItWas(const MfxXMLNode& old, const CString& name, const CString& value,
                   ConstraintStatus status) {
    CString oldValue;
    const bool isThere = old.GetAttributeValue(name, oldValue);
    if (old.GetNodeName() == kConstraintTag && name == kStatusAttribute)
        return isThere && status == ConstraintStatus::OfRecord;
    return !isThere && value == L"-1";
}

void UpdateAttributes(MfxXMLNode& old, const MfxXMLNode& updated, ConstraintStatus status) {
    if (updated.GetNodeName() == kValueTag)
        for (const CString& name : old.GetAttributeNames())
            if (IsCellAttribute(name)) old.RemoveAttribute(name);
    for (const CString& name : updated.GetAttributeNames()) {
        const CString value = updated.GetAttribute(name);
        if (!IsKeptAsItWas(old, name, value, status)) old.AddAttribute(name, value);
    }
}

void UpdateText(MfxXMLNode& old, const MfxXMLNode& updated) {
    if (old.GetNodeValue() != updated.GetNodeValue()) old.SetNodeValue(updated.GetNodeValue());
}

// Updates each element that is there and inserts each new one behind the one before it. Constraints get the
// rule's order.
void UpdateChildren(MfxXMLNode& old, const ChildIndex& oldIndex, std::vector<Child>& newChildren,
                    ConstraintStatus status) {
    const MfxXMLNode* last = nullptr;
    const Child* furthest = nullptr;  // of the old children that were met
    for (Child& child : newChildren) {
        const Child* counterpart = oldIndex.FindCounterpart(child);
        MfxXMLNode element = counterpart ? counterpart->element : child.element;
        if (counterpart) UpdateRecord(element, child.element, status);
        if (!counterpart || (child.tag == kConstraintTag && counterpart < furthest))
            old.InsertAfter(&element, last);
        furthest = std::max(furthest, counterpart);
        last = counterpart ? &counterpart->element : &child.element;
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

void UpdateRecord(MfxXMLNode& old, MfxXMLNode& updated, ConstraintStatus status) {
    const std::vector<Child> oldChildren = ChildrenOf(old);
    std::vector<Child> newChildren = ChildrenOf(updated);
    const ChildIndex oldIndex(oldChildren), newIndex(newChildren);
    UpdateAttributes(old, updated, status);
    if (newChildren.empty()) UpdateText(old, updated);
    UpdateChildren(old, oldIndex, newChildren, status);
    RemoveDropped(old, oldChildren, newIndex);
}
