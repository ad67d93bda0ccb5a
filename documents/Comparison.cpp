#include "Comparison.h"

#include "RecordNames.h"
#include "Text.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

// A rule's values in the units in which both sides are shown.
struct RuleContent {
    std::string name;
    int ruleId = 0;  // 0 of a record that the module does not know
    std::vector<RuleValue> values = {};
    std::string key = {};
};

// The units in which values are compared: masses in kilograms, whatever unit a rule keeps them in.
RuleUnits ComparedUnits(const RuleDocument& left) {
    return {left.GetUnits().m_nLengthUnit, left.GetUnits().m_nAngleUnit};
}

RuleContent ContentOf(const CMfxRule& rule, const RuleUnits& to) {
    RuleContent content{ToUtf8(rule.m_strDisplayName), rule.GetRuleId(), ListRuleValues(rule)};
    for (RuleValue& value : content.values) value = ConvertValue(std::move(value), UnitsOf(rule), to);
    return content;
}

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

RuleContent ContentOf(const MfxXMLNode& unknownRecord) {
    RuleContent content{ToUtf8(unknownRecord.GetAttribute(kNameAttribute))};
    ListTexts(unknownRecord, "", content.values);
    return content;
}

std::vector<RuleContent> ContentsOf(const RuleDocument& document, const RuleUnits& to) {
    std::vector<RuleContent> contents;
    for (const RuleDocument::Entry& entry : document.GetEntries()) {
        contents.push_back(entry.rule ? ContentOf(*entry.rule, to) : ContentOf(*entry.record));
        contents.back().key = entry.key;
    }
    return contents;
}

// A fresh rule for every rule of the document, in its order.
std::vector<RuleContent> DefaultsFor(const RuleDocument& document, const RuleUnits& to) {
    const std::vector<RulePtr> fresh = document.GetModule().CreateAllRules();
    std::vector<RuleContent> contents;
    for (const RuleDocument::Entry& entry : document.GetEntries())
        for (const RulePtr& rule : fresh)
            if (entry.rule && rule->GetRuleId() == entry.rule->GetRuleId()) {
                contents.push_back(ContentOf(*rule, to));
                contents.back().key = entry.key;
            }
    return contents;
}

// Stands for all values of a constraint or a rule that only one side has.
const RuleValue kWhole{.content = "present"};

// The constraints that only the first rule has; their values are not compared one by one.
std::set<std::string> ConstraintsOnlyIn(const RuleContent& first, const RuleContent& second) {
    std::set<std::string> constraints;
    for (const RuleValue& value : first.values) constraints.insert(value.constraint);
    for (const RuleValue& value : second.values) constraints.erase(value.constraint);
    return constraints;
}

// In the order of rule ids; records that the module does not know come first.
using ContentsByKey = std::map<std::pair<int, std::string>, const RuleContent*>;

ContentsByKey SortByKey(const std::vector<RuleContent>& contents) {
    ContentsByKey sorted;
    for (const RuleContent& content : contents) sorted[{content.ruleId, content.key}] = &content;
    return sorted;
}

class Comparer {
  public:
    // Rules are compared with the rule of the same key: the second draft angle rule with the second one.
    std::vector<Difference> Compare(const std::vector<RuleContent>& left,
                                    const std::vector<RuleContent>& right) {
        const ContentsByKey lefts = SortByKey(left), rights = SortByKey(right);
        for (const auto& [key, content] : lefts) {
            m_rule = content;
            const auto found = rights.find(key);
            if (found != rights.end())
                CompareRules(*content, *found->second);
            else
                AddWhole("", "rule", kWhole, std::nullopt);
        }
        for (const auto& [key, content] : rights) {
            m_rule = content;
            if (!lefts.contains(key)) AddWhole("", "rule", std::nullopt, kWhole);
        }
        return std::move(m_differences);
    }

  private:
    void AddWhole(const std::string& constraint, const std::string& label, std::optional<RuleValue> left,
                  std::optional<RuleValue> right) {
        m_differences.push_back({.rule = m_rule->name,
                                 .ruleId = m_rule->ruleId,
                                 .key = m_rule->key + (constraint.empty() ? "" : "/" + constraint),
                                 .constraint = constraint,
                                 .label = label,
                                 .left = std::move(left),
                                 .right = std::move(right)});
    }

    void AddValue(const RuleValue* left, const RuleValue* right) {
        const RuleValue& value = left ? *left : *right;
        m_differences.push_back({.rule = m_rule->name,
                                 .ruleId = m_rule->ruleId,
                                 .key = m_rule->key + "/" + value.key,
                                 .paramId = value.location.paramId,
                                 .constraint = value.constraint,
                                 .label = value.label,
                                 .row = value.row,
                                 .left = left ? std::optional(*left) : std::nullopt,
                                 .right = right ? std::optional(*right) : std::nullopt});
    }

    void CompareRules(const RuleContent& left, const RuleContent& right) {
        std::set<std::string> onlyOnOneSide = ConstraintsOnlyIn(left, right);
        for (const std::string& constraint : onlyOnOneSide)
            AddWhole(constraint, "constraint", kWhole, std::nullopt);
        for (const std::string& constraint : ConstraintsOnlyIn(right, left)) {
            AddWhole(constraint, "constraint", std::nullopt, kWhole);
            onlyOnOneSide.insert(constraint);
        }
        const RuleValueIndex lefts(left.values), rights(right.values);
        for (const RuleValue& value : left.values) {
            const RuleValue* other = rights.FindCounterpart(value);
            if (!onlyOnOneSide.contains(value.constraint) && !(other && IsSameValue(value, *other)))
                AddValue(&value, other);
        }
        for (const RuleValue& value : right.values)
            if (!onlyOnOneSide.contains(value.constraint) && !lefts.FindCounterpart(value))
                AddValue(nullptr, &value);
    }

    const RuleContent* m_rule = nullptr;  // the one being compared
    std::vector<Difference> m_differences;
};

}  // namespace

std::vector<Difference> CompareDocuments(const RuleDocument& left, const RuleDocument& right) {
    const RuleUnits units = ComparedUnits(left);
    return Comparer().Compare(ContentsOf(left, units), ContentsOf(right, units));
}

std::vector<Difference> CompareWithDefaults(const RuleDocument& document) {
    const RuleUnits units = ComparedUnits(document);
    return Comparer().Compare(DefaultsFor(document, units), ContentsOf(document, units));
}
