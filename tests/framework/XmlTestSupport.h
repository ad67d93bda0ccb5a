#pragma once

#include "MfxXMLDocument.h"
#include "MfxXMLNode.h"

#include <gtest/gtest.h>

#include <memory>
#include <string_view>

using NodePtr = std::unique_ptr<MfxXMLNode>;

// Parses a text that has to be readable and returns its outermost element.
inline NodePtr ParseRoot(MfxXMLDocument& document, std::string_view text) {
    const MfxXmlParseResult result = document.Parse(text);
    EXPECT_TRUE(result.bOk) << CStringA(result.strReason).GetString() << " in " << text;
    return NodePtr(document.GetRootNode());
}

// What ToUtf8 writes before and after the outermost element that it was given.
inline std::string AsDocument(std::string_view element) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + std::string(element) + "\n";
}
