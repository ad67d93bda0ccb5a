#pragma once

#include "MfxKitExport.h"

#include <afx.h>

#include <compare>
#include <optional>
#include <vector>

namespace pugi {
struct xml_node_struct;
}

namespace mfx_xml {
struct Access;
}

class MfxXMLNodeList;

// Wrapper around one element of an MfxXMLDocument. Deleting the wrapper leaves the element where it is; the
// document must outlive its wrappers. Wrappers that an operation returns are the caller's to delete.
class MFXKIT_API MfxXMLNode {
  public:
    // Adds an attribute after the others, or gives an existing one a new value.
    // Returns false when the name can't be an attribute's.
    bool AddAttribute(const CString& strName, const CString& strValue);

    // Makes the element the last child; null adds nothing. An element of another document is moved over here,
    // and the given wrapper then stands for it in this document.
    void AppendNode(MfxXMLNode* pChild);

    // Creates an element with that tag as the last child; null when the tag can't be an element's.
    MfxXMLNode* AppendNode(const CString& strTag);

    // Makes the element, one of this document, the child next after pAfter, the first one for null. Returns
    // false when nothing was moved.
    bool InsertAfter(MfxXMLNode* pChild, const MfxXMLNode* pAfter);

    // Deletes a child element with all that is in it; its wrappers must not be used any more.
    void RemoveNode(const MfxXMLNode& child);
    void RemoveAttribute(const CString& strName);

    // The element's text; texts that comments separate are joined.
    void SetNodeValue(const CString& strValue);
    CString GetNodeValue() const;

    // The text as a number; false, with the output unchanged, when it does not start with one.
    bool GetNodeValueInInt(int& nValue) const;
    bool GetNodeValueInDouble(double& dValue) const;

    CString GetNodeName() const;

    // False, with the output unchanged, when there is no such attribute.
    bool GetAttributeValue(const CString& strName, CString& strValue) const;

    // The attribute's value, or the default when there is none.
    CString GetAttribute(const CString& strName, const CString& strDefault = CString()) const;

    // First child element with that tag, or null.
    MfxXMLNode* SelectSingleNode(const CString& strTag) const;

    // Child elements with that tag in document order, all of them for an empty tag.
    MfxXMLNodeList* GetNodeList(const CString& strTag) const;

    // The first child element with that tag, and the next element with it beside this one; any element for an
    // empty tag. For loops over thousands of records: nothing is allocated.
    std::optional<MfxXMLNode> FindChild(const CString& strTag) const;
    std::optional<MfxXMLNode> FindNext(const CString& strTag) const;

    // Calls visit(child) for every child element with that tag, in document order.
    template <class Visit>
    void ForEachChild(const CString& strTag, Visit visit) const {
        for (auto child = FindChild(strTag); child; child = child->FindNext(strTag)) visit(*child);
    }

    // Elements with that tag anywhere in this one, in document order.
    std::vector<MfxXMLNode> FindDescendants(const CString& strTag) const;

    // Names of the attributes, in their order.
    std::vector<CString> GetAttributeNames() const;
    std::size_t GetAttributeCount() const;

    // Whether a comment or a processing instruction stands in it, however deep.
    bool HasComments() const;

    // The element that this one is attached to, or null.
    MfxXMLNode* GetParentNode() const;

    // Equal when both stand for the same element. The order has no meaning; it makes elements keys of maps.
    auto operator<=>(const MfxXMLNode&) const = default;

  private:
    friend class MfxXMLDocument;
    friend class MfxXMLNodeList;
    friend struct mfx_xml::Access;
    explicit MfxXMLNode(pugi::xml_node_struct* pElement) : m_pElement(pElement) {}

    static MfxXMLNode* Wrap(pugi::xml_node_struct* pElement);
    static std::optional<MfxXMLNode> FirstOf(pugi::xml_node_struct* pFirst, const CString& strTag);

    pugi::xml_node_struct* m_pElement;
};

// Elements found by MfxXMLNode::GetNodeList.
class MFXKIT_API MfxXMLNodeList {
  public:
    long GetSize() const;

    // Wrapper that the list owns; null for an index outside the list.
    MfxXMLNode* operator[](long nIndex);

  private:
    friend class MfxXMLNode;
    std::vector<MfxXMLNode> m_nodes;
};
