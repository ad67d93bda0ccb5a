#include "RuleContent.h"

#include "ElementXml.h"
#include "RecordNames.h"
#include "Text.h"

#include <map>

namespace {

// The texts of a record that the module does not know, each with its path as label: "Parameter (2)/Value".
void ListTexts(const MfxXMLNode& element, const std::string& path, std::vector<RuleValue>& values) {
    const auto add = [&](const std::string& label, const CString& text) {
        if (!text.IsEmpty()) values.push_back({.key = label, .label = label, .content = ToUtf8(text)});
    };
    add(path, element.GetNodeValue().Trim());
    const std::string prefix = path.empty() ? "" : path + "/";
    for (const CString& name : element.GetAttributeNames())
        add(prefix + ToUtf8(name), element.GetAttribute(name));
    std::map<std::string, int> counts;
    element.ForEachChild(CString(), [&](const MfxXMLNode& child) {
        const std::string tag = ToUtf8(child.GetNodeName());
        const int count = ++counts[tag];
        ListTexts(child, prefix + tag + (count > 1 ? " (" + std::to_string(count) + ")" : ""), values);
    });
}

RuleContent ContentOf(const CMfxRule& rule, const std::string& key, const UnitPair& units) {
    return {ToUtf8(rule.m_strDisplayName), rule.GetRuleId(), key, ValuesIn(rule, units)};
}

RuleContent ContentOfUnknown(const RuleDocument::Entry& entry) {
    RuleContent content{.name = ToUtf8(entry.record->GetAttribute(kNameAttribute)),
                        .key = entry.key,
                        .values = {},
                        .record = ElementToUtf8(*entry.record)};
    ListTexts(*entry.record, "", content.values);
    return content;
}

}  // namespace

RuleUnits ComparedUnits(const UnitPair& units) {
    return {units.m_nLengthUnit, units.m_nAngleUnit};
}

std::vector<RuleValue> ValuesIn(const CMfxRule& rule, const UnitPair& units) {
    std::vector<RuleValue> values = ListRuleValues(rule);
    for (RuleValue& value : values)
        value = ConvertValue(std::move(value), UnitsOf(rule), ComparedUnits(units));
    return values;
}

std::vector<RuleContent> ContentsOf(const RuleDocument& document, const UnitPair& units) {
    std::vector<RuleContent> contents;
    for (const RuleDocument::Entry& entry : document.GetEntries())
        contents.push_back(entry.rule ? ContentOf(*entry.rule, entry.key, units) : ContentOfUnknown(entry));
    return contents;
}

std::vector<RuleContent> DefaultsFor(const RuleDocument& document) {
    const std::vector<RulePtr> fresh = document.GetModule().CreateAllRules();
    std::vector<RuleContent> contents;
    for (const RuleDocument::Entry& entry : document.GetEntries())
        for (const RulePtr& rule : fresh)
            if (entry.rule && rule->GetRuleId() == entry.rule->GetRuleId())
                contents.push_back(ContentOf(*rule, entry.key, document.GetUnits()));
    return contents;
}
