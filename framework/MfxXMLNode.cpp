#include "MfxXMLNode.h"

#include "MfxXMLInternal.h"
#include "XmlNumber.h"

#include <memory>

using mfx_xml::IsDetachedHolder;
using mfx_xml::IsXmlName;

namespace {

bool IsSameOrInside(pugi::xml_node node, pugi::xml_node ancestor) {
    for (; node; node = node.parent())
        if (node == ancestor) return true;
    return false;
}

}  // namespace

MfxXMLNode* MfxXMLNode::Wrap(pugi::xml_node_struct* pElement) {
    return pElement ? new MfxXMLNode(pElement) : nullptr;
}

bool MfxXMLNode::AddAttribute(const CString& strName, const CString& strValue) {
    if (!IsXmlName(strName)) return false;
    pugi::xml_node element(m_pElement);
    pugi::xml_attribute attribute = element.attribute(strName);
    if (!attribute) attribute = element.append_attribute(strName);
    return attribute.set_value(strValue);
}

void MfxXMLNode::AppendNode(MfxXMLNode* pChild) {
    if (!pChild) return;
    pugi::xml_node parent(m_pElement), child(pChild->m_pElement);
    if (IsSameOrInside(parent, child)) return;
    if (parent.append_move(child)) return;
    // Elements can't move between documents: copy, then drop the original.
    const pugi::xml_node copy = parent.append_copy(child);
    if (!copy) return;
    child.parent().remove_child(child);
    pChild->m_pElement = copy.internal_object();
}

MfxXMLNode* MfxXMLNode::AppendNode(const CString& strTag) {
    if (!IsXmlName(strTag)) return nullptr;
    return Wrap(pugi::xml_node(m_pElement).append_child(strTag).internal_object());
}

bool MfxXMLNode::InsertAfter(MfxXMLNode* pChild, const MfxXMLNode* pAfter) {
    pugi::xml_node parent(m_pElement), child(pChild->m_pElement);
    if (IsSameOrInside(parent, child)) return false;
    if (!pAfter) return static_cast<bool>(parent.prepend_move(child));
    return static_cast<bool>(parent.insert_move_after(child, pugi::xml_node(pAfter->m_pElement)));
}

void MfxXMLNode::RemoveNode(const MfxXMLNode& child) {
    pugi::xml_node(m_pElement).remove_child(pugi::xml_node(child.m_pElement));
}

void MfxXMLNode::RemoveAttribute(const CString& strName) {
    pugi::xml_node(m_pElement).remove_attribute(strName);
}

void MfxXMLNode::SetNodeValue(const CString& strValue) {
    pugi::xml_node element(m_pElement);
    for (pugi::xml_node child = element.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            element.remove_child(child);
        child = next;
    }
    element.append_child(pugi::node_pcdata).set_value(strValue);
}

CString MfxXMLNode::GetNodeValue() const {
    return mfx_xml::TextOf(pugi::xml_node(m_pElement));
}

bool MfxXMLNode::GetNodeValueInInt(int& nValue) const {
    return ParseInteger(GetNodeValue(), nValue);
}

bool MfxXMLNode::GetNodeValueInDouble(double& dValue) const {
    return ParseReal(GetNodeValue(), dValue);
}

CString MfxXMLNode::GetNodeName() const {
    return pugi::xml_node(m_pElement).name();
}

bool MfxXMLNode::GetAttributeValue(const CString& strName, CString& strValue) const {
    const pugi::xml_attribute attribute = pugi::xml_node(m_pElement).attribute(strName);
    if (!attribute) return false;
    strValue = attribute.value();
    return true;
}

CString MfxXMLNode::GetAttribute(const CString& strName, const CString& strDefault) const {
    const pugi::xml_attribute attribute = pugi::xml_node(m_pElement).attribute(strName);
    return attribute ? CString(attribute.value()) : strDefault;
}

MfxXMLNode* MfxXMLNode::SelectSingleNode(const CString& strTag) const {
    for (const pugi::xml_node child : pugi::xml_node(m_pElement).children(strTag))
        if (child.type() == pugi::node_element) return Wrap(child.internal_object());
    return nullptr;
}

std::optional<MfxXMLNode> MfxXMLNode::FindChild(const CString& strTag) const {
    return FirstOf(pugi::xml_node(m_pElement).first_child().internal_object(), strTag);
}

std::optional<MfxXMLNode> MfxXMLNode::FindNext(const CString& strTag) const {
    return FirstOf(pugi::xml_node(m_pElement).next_sibling().internal_object(), strTag);
}

std::optional<MfxXMLNode> MfxXMLNode::FirstOf(pugi::xml_node_struct* pFirst, const CString& strTag) {
    for (pugi::xml_node node(pFirst); node; node = node.next_sibling())
        if (node.type() == pugi::node_element && (strTag.IsEmpty() || strTag == node.name()))
            return MfxXMLNode(node.internal_object());
    return std::nullopt;
}

MfxXMLNodeList* MfxXMLNode::GetNodeList(const CString& strTag) const {
    auto pList = std::make_unique<MfxXMLNodeList>();
    for (const pugi::xml_node child : pugi::xml_node(m_pElement).children())
        if (child.type() == pugi::node_element && (strTag.IsEmpty() || strTag == child.name()))
            pList->m_nodes.push_back(MfxXMLNode(child.internal_object()));
    return pList.release();
}

std::vector<MfxXMLNode> MfxXMLNode::FindDescendants(const CString& strTag) const {
    std::vector<MfxXMLNode> found;
    mfx_xml::ForEachElement(pugi::xml_node(m_pElement), [&](const pugi::xml_node& element, int) {
        if (strTag == element.name()) found.push_back(MfxXMLNode(element.internal_object()));
        return true;
    });
    return found;
}

std::vector<CString> MfxXMLNode::GetAttributeNames() const {
    std::vector<CString> names;
    for (const pugi::xml_attribute attribute : pugi::xml_node(m_pElement).attributes())
        names.emplace_back(attribute.name());
    return names;
}

std::size_t MfxXMLNode::GetAttributeCount() const {
    const auto attributes = pugi::xml_node(m_pElement).attributes();
    return static_cast<std::size_t>(std::distance(attributes.begin(), attributes.end()));
}

bool MfxXMLNode::HasComments() const {
    return static_cast<bool>(pugi::xml_node(m_pElement).find_node([](const pugi::xml_node& node) {
        return node.type() == pugi::node_comment || node.type() == pugi::node_pi;
    }));
}

MfxXMLNode* MfxXMLNode::GetParentNode() const {
    const pugi::xml_node parent = pugi::xml_node(m_pElement).parent();
    if (parent.type() != pugi::node_element || IsDetachedHolder(parent)) return nullptr;
    return Wrap(parent.internal_object());
}

long MfxXMLNodeList::GetSize() const {
    return static_cast<long>(m_nodes.size());
}

MfxXMLNode* MfxXMLNodeList::operator[](long nIndex) {
    return nIndex >= 0 && nIndex < GetSize() ? &m_nodes[static_cast<std::size_t>(nIndex)] : nullptr;
}
