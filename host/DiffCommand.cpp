#include "DiffCommand.h"

#include "JsonOutput.h"
#include "RecordCheck.h"
#include "RuleDocument.h"
#include "RuleValues.h"
#include "Text.h"
#include "TextTable.h"
#include "UnitNames.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <tuple>

namespace {

// A place where two documents differ: a value, or a whole constraint or rule. What one side does not have is
// nothing.
struct Difference {
    std::string rule;
    int nRuleId = 0;
    std::string constraint;
    std::string label;
    int nRow = 0;
    std::optional<RuleValue> left;
    std::optional<RuleValue> right;
};

// A rule's values in the units in which both sides are shown.
struct RuleContent {
    std::string name;
    int nRuleId = 0;
    std::vector<RuleValue> values;
};

RuleContent ContentOf(const CMfxRule& rule, const UnitPair& from, const UnitPair& to) {
    RuleContent content{ToUtf8(rule.m_strDisplayName), rule.GetRuleId(), ListRuleValues(rule)};
    for (RuleValue& value : content.values) value = InUnits(std::move(value), from, to);
    return content;
}

// The rules of a document that the module recognised.
std::vector<RuleContent> ContentsOf(const RuleDocument& document, const UnitPair& to) {
    std::vector<RuleContent> contents;
    for (const RuleDocument::Entry& entry : document.GetEntries())
        if (entry.pRule) contents.push_back(ContentOf(*entry.pRule, document.GetUnits(), to));
    return contents;
}

// A fresh rule for every rule of the document, in its order.
std::vector<RuleContent> DefaultsFor(const RuleDocument& document, const RuleModule& module,
                                     const UnitPair& to) {
    const std::vector<RulePtr> fresh = module.CreateAllRules();
    std::vector<RuleContent> contents;
    for (const RuleDocument::Entry& entry : document.GetEntries())
        for (const RulePtr& pRule : fresh)
            if (entry.pRule && pRule->GetRuleId() == entry.pRule->GetRuleId())
                contents.push_back(ContentOf(*pRule, UnitPair(), to));
    return contents;
}

// Stands for all values of a constraint or a rule that only one side has.
RuleValue Whole(const std::string& what) {
    return {"", "", 0, "", what};
}

// The constraints that only the first rule has; their values are not compared one by one.
std::set<std::string> ConstraintsOnlyIn(const RuleContent& first, const RuleContent& second) {
    std::set<std::string> constraints;
    for (const RuleValue& value : first.values) constraints.insert(value.constraint);
    for (const RuleValue& value : second.values) constraints.erase(value.constraint);
    return constraints;
}

void CompareRules(const RuleContent& left, const RuleContent& right, std::vector<Difference>& differences) {
    std::set<std::string> whole = ConstraintsOnlyIn(left, right);
    for (const std::string& constraint : whole)
        differences.push_back(
            {left.name, left.nRuleId, constraint, "constraint", 0, Whole("present"), std::nullopt});
    for (const std::string& constraint : ConstraintsOnlyIn(right, left)) {
        differences.push_back(
            {left.name, left.nRuleId, constraint, "constraint", 0, std::nullopt, Whole("present")});
        whole.insert(constraint);
    }
    const PlaceIndex lefts(left.values), rights(right.values);
    for (const RuleValue& value : left.values) {
        const RuleValue* pOther = rights.Find(value);
        if (whole.count(value.constraint) == 0 && !(pOther && IsSameValue(value, *pOther)))
            differences.push_back({left.name, left.nRuleId, value.constraint, value.label, value.nRow, value,
                                   pOther ? std::optional(*pOther) : std::nullopt});
    }
    for (const RuleValue& value : right.values)
        if (whole.count(value.constraint) == 0 && !lefts.Find(value))
            differences.push_back(
                {left.name, left.nRuleId, value.constraint, value.label, value.nRow, std::nullopt, value});
}

// Rules are compared with the rule of the same kind and number: the second draft angle rule with the second
// one.
std::vector<Difference> Compare(const std::vector<RuleContent>& left, const std::vector<RuleContent>& right) {
    const auto number = [](const std::vector<RuleContent>& contents) {
        std::map<std::pair<int, int>, const RuleContent*> numbered;
        std::map<int, int> counts;
        for (const RuleContent& content : contents)
            numbered[{content.nRuleId, ++counts[content.nRuleId]}] = &content;
        return numbered;
    };
    const auto lefts = number(left), rights = number(right);
    std::vector<Difference> differences;
    for (const auto& [key, pContent] : lefts) {
        const auto found = rights.find(key);
        if (found != rights.end())
            CompareRules(*pContent, *found->second, differences);
        else
            differences.push_back({pContent->name, key.first, "", "rule", 0, Whole("present"), std::nullopt});
    }
    for (const auto& [key, pContent] : rights)
        if (lefts.count(key) == 0)
            differences.push_back({pContent->name, key.first, "", "rule", 0, std::nullopt, Whole("present")});
    return differences;
}

std::string PlaceText(const Difference& difference) {
    return (difference.constraint.empty() ? "" : difference.constraint + ": ") + difference.label +
           (difference.nRow ? ", row " + std::to_string(difference.nRow) : "");
}

void PrintTable(const std::vector<Difference>& differences, const std::string& left,
                const std::string& right) {
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Right, Align::Right});
    table.Add({"rule", "value", left, right});
    for (const Difference& difference : differences)
        table.Add({difference.rule, PlaceText(difference),
                   difference.left ? FormatRuleValue(*difference.left) : "(none)",
                   difference.right ? FormatRuleValue(*difference.right) : "(none)"});
    if (!differences.empty()) Print(table.Format(0));
}

Json ToJson(const std::optional<RuleValue>& value) {
    if (!value) return nullptr;
    if (const double* pNumber = std::get_if<double>(&value->value)) return *pNumber;
    return FormatRuleValue(*value);
}

// A word has no unit, but the number beside it may.
std::string UnitOf(const Difference& difference) {
    const bool bLeft = difference.left && !difference.left->unit.empty();
    return bLeft || !difference.right ? difference.left->unit : difference.right->unit;
}

Json DifferenceToJson(const Difference& difference) {
    Json json{{"rule", difference.rule}, {"ruleId", difference.nRuleId}};
    json["constraint"] = TextOrNull(difference.constraint);
    json["value"] = difference.label;
    json["row"] = difference.nRow ? Json(difference.nRow) : Json(nullptr);
    json["unit"] = TextOrNull(UnitOf(difference));
    json["left"] = ToJson(difference.left);
    json["right"] = ToJson(difference.right);
    return json;
}

void PrintDifferences(const std::vector<Difference>& differences, const std::string& left,
                      const std::string& right) {
    constexpr int kJsonVersion = 1;
    PrintJson({{"version", kJsonVersion},
               {"left", left},
               {"right", right},
               {"differences", ToArray(differences, DifferenceToJson)}});
}

}  // namespace

ExitCode DiffDocuments(const RuleModule& module, const DiffOptions& options) {
    const CString& strRight = options.bDefaults ? options.strLeft : options.strRight;
    const RuleDocument right(strRight, module);
    const std::unique_ptr<RuleDocument> pLeft =
        options.bDefaults ? nullptr : std::make_unique<RuleDocument>(options.strLeft, module);
    const UnitPair units = pLeft ? pLeft->GetUnits() : right.GetUnits();

    const std::vector<RuleContent> rightContents = ContentsOf(right, units);
    const std::vector<RuleContent> leftContents =
        pLeft ? ContentsOf(*pLeft, units) : DefaultsFor(right, module, units);
    const std::vector<Difference> differences = Compare(leftContents, rightContents);

    const std::string leftName = pLeft ? ToUtf8(options.strLeft) : "default";
    if (options.bJson)
        PrintDifferences(differences, leftName, ToUtf8(strRight));
    else
        PrintTable(differences, leftName, ToUtf8(strRight));
    const bool bUnreadLeft = pLeft && PrintUnread(*pLeft);
    const bool bUnread = PrintUnread(right) || bUnreadLeft;
    return bUnread || !differences.empty() ? ExitCode::Findings : ExitCode::Done;
}
