#pragma once

#include "MfxXMLDocument.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

using NodePtr = std::unique_ptr<MfxXMLNode>;
using NodeListPtr = std::unique_ptr<MfxXMLNodeList>;

// Parses a text that has to be readable and returns its outermost element.
inline NodePtr ParseRoot(MfxXMLDocument& document, const std::string& text) {
    EXPECT_TRUE(document.Parse(text).bOk) << text;
    return NodePtr(document.GetRootNode());
}

// What ToUtf8 writes for an outermost element.
inline std::string AsDocument(const std::string& element) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + element + "\n";
}
