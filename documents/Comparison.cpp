#include "Comparison.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

// Stands for all values of a row, a constraint or a rule that only one side has.
const RuleValue kWhole{.content = "present"};

// In the order of rule ids; records that the module does not know come first.
using ContentsByKey = std::map<std::pair<int, std::string>, const RuleContent*>;

ContentsByKey SortByKey(const std::vector<RuleContent>& contents) {
    ContentsByKey sorted;
    for (const RuleContent& content : contents) sorted[{content.ruleId, content.key}] = &content;
    return sorted;
}

// The values of each constraint of a rule, by its key. Those of the rule itself are not among them.
std::map<std::string, std::vector<RuleValue>> ConstraintsOf(const RuleContent& content) {
    std::map<std::string, std::vector<RuleValue>> constraints;
    for (const RuleValue& value : content.values)
        if (!value.constraint.empty()) constraints[value.key.substr(0, value.key.find('/'))].push_back(value);
    return constraints;
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
                AddWholeRule(true);
        }
        for (const auto& [key, content] : rights) {
            m_rule = content;
            if (!lefts.contains(key)) AddWholeRule(false);
        }
        return std::move(m_differences);
    }

  private:
    // The key is the rest behind the rule's own.
    Difference& Add(DifferenceScope scope, const std::string& key, const std::string& label) {
        return m_differences.emplace_back(Difference{.scope = scope,
                                                     .rule = m_rule->name,
                                                     .ruleId = m_rule->ruleId,
                                                     .key = m_rule->key + (key.empty() ? "" : "/" + key),
                                                     .label = label,
                                                     .left = std::nullopt,
                                                     .right = std::nullopt});
    }

    Difference& AddWhole(DifferenceScope scope, const std::string& key, const std::string& label, bool isLeft,
                         const std::vector<RuleValue>& values) {
        Difference& difference = Add(scope, key, label);
        (isLeft ? difference.left : difference.right) = kWhole;
        difference.values = values;
        return difference;
    }

    void AddWholeRule(bool isLeft) {
        AddWhole(DifferenceScope::Rule, "", "rule", isLeft,
                 m_rule->ruleId ? m_rule->values : std::vector<RuleValue>());
    }

    Difference& AddValue(const RuleValue* left, const RuleValue* right) {
        const RuleValue& value = left ? *left : *right;
        Difference& difference = Add(DifferenceScope::Value, value.key, value.label);
        difference.paramId = value.location.paramId;
        difference.constraint = value.constraint;
        difference.row = value.row;
        if (left) difference.left = *left;
        if (right) difference.right = *right;
        return difference;
    }

    void CompareRules(const RuleContent& left, const RuleContent& right) {
        const auto lefts = ConstraintsOf(left), rights = ConstraintsOf(right);
        m_onOneSide.clear();
        AddConstraintsOnlyIn(lefts, rights, true);
        AddConstraintsOnlyIn(rights, lefts, false);
        CompareValues(left.values, right.values);
        auto rightTables = TablesOf(right.values), leftTables = TablesOf(left.values);
        for (const auto& [table, rows] : rightTables) leftTables[table];
        for (const auto& [table, rows] : leftTables)
            if (!m_onOneSide.contains(ConstraintOfTable(table)))
                CompareTables(table, rows, rightTables[table]);
    }

    template <class Constraints>
    void AddConstraintsOnlyIn(const Constraints& constraints, const Constraints& others, bool isLeft) {
        for (const auto& [key, values] : constraints) {
            if (others.contains(key)) continue;
            AddWhole(DifferenceScope::Constraint, key, "constraint", isLeft, values).constraint =
                values.front().constraint;
            m_onOneSide.insert(key);
        }
    }

    // All but what stands in tables of bands.
    void CompareValues(const std::vector<RuleValue>& left, const std::vector<RuleValue>& right) {
        const RuleValueIndex lefts(left), rights(right);
        for (const RuleValue& value : left) {
            const RuleValue* other = rights.FindCounterpart(value);
            if (IsCompared(value) && !(other && IsSameValue(value, *other))) AddValue(&value, other);
        }
        for (const RuleValue& value : right)
            if (IsCompared(value) && !lefts.FindCounterpart(value)) AddValue(nullptr, &value);
    }

    bool IsCompared(const RuleValue& value) const {
        return value.table.empty() && !m_onOneSide.contains(value.key.substr(0, value.key.find('/')));
    }

    void CompareTables(const std::string& table, const std::vector<BandRow>& left,
                       const std::vector<BandRow>& right) {
        int after = 0;
        for (const RowPair& pair : AlignRows(left, right)) {
            const BandRow none;
            const BandRow& leftRow = pair.left ? left[static_cast<std::size_t>(pair.left - 1)] : none;
            const BandRow& rightRow = pair.right ? right[static_cast<std::size_t>(pair.right - 1)] : none;
            if (pair.left && pair.right)
                CompareRows(leftRow, rightRow);
            else
                AddWholeRow(table, pair.left ? leftRow : rightRow, pair.left != 0, after);
            if (pair.left) after = pair.left;
        }
    }

    void CompareRows(const BandRow& left, const BandRow& right) {
        for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i) {
            if (IsSameValue(left[i], right[i])) continue;
            Difference& difference = AddValue(&left[i], &right[i]);
            difference.table = left[i].table;
            difference.bounds = BoundsOf(left);
        }
    }

    void AddWholeRow(const std::string& table, const BandRow& row, bool isLeft, int after) {
        Difference& difference =
            AddWhole(DifferenceScope::Row, RowKey(table, row[0].row), "band", isLeft, row);
        difference.constraint = row[0].constraint;
        difference.table = table;
        difference.row = row[0].row;
        difference.bounds = BoundsOf(row);
        if (!isLeft) difference.after = after;
        if (ConstraintOfTable(table).empty()) difference.paramId = row[0].location.paramId;
    }

    const RuleContent* m_rule = nullptr;  // the one being compared
    std::set<std::string> m_onOneSide;    // keys of its constraints that only one side has
    std::vector<Difference> m_differences;
};

}  // namespace

std::vector<Difference> CompareContents(const std::vector<RuleContent>& left,
                                        const std::vector<RuleContent>& right) {
    return Comparer().Compare(left, right);
}

std::vector<Difference> CompareDocuments(const RuleDocument& left, const RuleDocument& right) {
    return CompareContents(ContentsOf(left, left.GetUnits()), ContentsOf(right, left.GetUnits()));
}
