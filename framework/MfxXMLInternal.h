// Inside the framework only: what the wrappers know of the XML library.
#pragma once

#include "MfxXMLNode.h"

#include <afx.h>

#include <algorithm>

#include <pugixml.hpp>

static_assert(sizeof(pugi::char_t) == sizeof(wchar_t), "pugixml has to be built with PUGIXML_WCHAR_MODE");

namespace mfx_xml {

// Between wrappers and the library's nodes, for code that handles many elements at once.
struct Access {
    static pugi::xml_node Element(const MfxXMLNode& node) { return pugi::xml_node(node.m_pElement); }
    static MfxXMLNode* Wrap(const pugi::xml_node& element) {
        return MfxXMLNode::Wrap(element.internal_object());
    }
};

// Tag of the document's child under which elements live until they are appended somewhere. The name can't be
// written in a file, so no element of a user can have it.
inline constexpr const wchar_t* kDetachedTag = L"<detached>";

inline bool IsDetachedHolder(const pugi::xml_node& node) {
    return node && node.type() == pugi::node_element && node.parent().type() == pugi::node_document &&
           wcscmp(node.name(), kDetachedTag) == 0;
}

// Calls visit(element, depth) for every element under a node, in document order, until it returns false; the
// node's own children have depth 0. Not recursive, however deep they are nested.
template <class Visit>
void ForEachElement(pugi::xml_node parent, Visit visit) {
    struct Walker : pugi::xml_tree_walker {
        explicit Walker(Visit& each) : m_visit(each) {}
        bool for_each(pugi::xml_node& node) override {
            return node.type() != pugi::node_element || m_visit(node, depth());
        }
        Visit& m_visit;
    } walker(visit);
    parent.traverse(walker);
}

// The first child element with that tag, and the next one beside it. The library's own look-ups by name find
// processing instructions too.
inline pugi::xml_node FirstElement(const pugi::xml_node& parent, const wchar_t* tag) {
    return parent.find_child([=](const pugi::xml_node& child) {
        return child.type() == pugi::node_element && wcscmp(child.name(), tag) == 0;
    });
}
inline pugi::xml_node NextElement(pugi::xml_node element, const wchar_t* tag) {
    do element = element.next_sibling(tag);
    while (element && element.type() != pugi::node_element);
    return element;
}

// An element's text; texts that comments separate are joined.
inline CString TextOf(const pugi::xml_node& element) {
    CString strText;
    for (const pugi::xml_node child : element.children())
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) strText += child.value();
    return strText;
}

// Whether the text can be the name of an element or an attribute. Beyond ASCII every character is taken for a
// letter.
inline bool IsXmlName(const CString& strName) {
    const auto isStart = [](wchar_t ch) {
        return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') || ch == L'_' || ch == L':' ||
               ch >= 0x80;
    };
    const auto isFurther = [&](wchar_t ch) {
        return isStart(ch) || (ch >= L'0' && ch <= L'9') || ch == L'-' || ch == L'.';
    };
    const wchar_t* pszName = strName;
    return isStart(pszName[0]) && std::all_of(pszName, pszName + strName.GetLength(), isFurther);
}

}  // namespace mfx_xml
