#include "RulePatch.h"

#include "EditError.h"

#include <algorithm>

namespace {

constexpr char kPresent[] = "present";
constexpr char kNone[] = "(none)";

std::string TextOf(const RuleValue* value) {
    return value ? FormatRuleValue(*value, kComparedDigits) : kNone;
}

const RuleValue* PointerTo(const std::optional<RuleValue>& value) {
    return value ? &*value : nullptr;
}

// The patch has no rounding errors of its own.
bool IsSame(const RuleValue* found, const RuleValue* side) {
    if (!found || !side) return found == side;
    RuleValue other = *side;
    other.roundingError = found->roundingError;
    return IsSameValue(*found, other);
}

// What names a value in its row, constraint or rule, wherever that stands.
std::string NameIn(DifferenceScope scope, const RuleValue& value) {
    if (scope == DifferenceScope::Row) return value.column;
    return scope == DifferenceScope::Rule ? value.key : value.key.substr(value.key.find('/') + 1);
}

// The first number of the bounds.
double LowerBound(const BandRow& row) {
    for (const RuleValue& bound : BoundsOf(row))
        if (const double* number = std::get_if<double>(&bound.content)) return *number;
    return 0.0;
}

std::set<std::string> ConstraintKeysOf(const std::vector<RuleValue>& values) {
    std::set<std::string> keys;
    for (const RuleValue& value : values)
        if (value.location.constraint >= 0) keys.insert(value.key.substr(0, value.key.find('/')));
    return keys;
}

bool HaveSameBounds(const BandRow& first, const BandRow& second) {
    return std::ranges::equal(BoundsOf(first), BoundsOf(second),
                              [](const auto& p, const auto& q) { return IsSame(&p, &q); });
}

}  // namespace

std::string DescribeUnequal(const std::string& ruleKey, DifferenceScope scope,
                            const std::vector<RuleValue>& expected, const std::vector<RuleValue>& found) {
    std::map<std::string, const RuleValue*> names;
    for (const RuleValue& value : expected) names.emplace(NameIn(scope, value), &value);
    for (const RuleValue& value : found) {
        const auto other = names.extract(NameIn(scope, value));
        if (!other || !IsSame(&value, other.mapped()))
            return std::string(kPresent) + ", but " + ruleKey + "/" + value.key + " is " + TextOf(&value);
    }
    return names.empty()
               ? ""
               : std::string(kPresent) + ", but without " + ruleKey + "/" + names.begin()->second->key;
}

bool ConflictList::Add(const Conflict& conflict) {
    if (m_keys.insert(conflict.key).second) m_conflicts.push_back(conflict);
    return m_choice == ConflictChoice::Patch;
}

void ConflictList::AddMissing(const std::string& key) {
    if (Add({key, kPresent, kNone, "present, changed"}))
        throw EditError(key + " is not there, so that nothing in it can be changed");
}

bool ConflictList::KeepsPartOf(const std::string& ruleKey) const {
    return m_choice == ConflictChoice::Document && std::ranges::any_of(m_keys, [&](const std::string& key) {
               return key.starts_with(ruleKey + "/");
           });
}

RulePatch::RulePatch(const Patch& patch, const std::string& ruleKey, std::vector<RuleValue> values,
                     ConflictList& conflicts)
    : m_patch(patch),
      m_ruleKey(ruleKey),
      m_values(std::move(values)),
      m_index(m_values),
      m_constraintKeys(ConstraintKeysOf(m_values)),
      m_conflicts(conflicts),
      m_edits{.units = patch.units} {}

void RulePatch::Add(const Difference& difference) {
    if (difference.scope == DifferenceScope::Value)
        AddValue(difference);
    else if (difference.scope == DifferenceScope::Row)
        AddRow(difference);
    else
        AddConstraint(difference);
}

std::string RulePatch::RestOf(const Difference& difference) const {
    return difference.key.substr(m_ruleKey.size() + 1);
}

std::vector<RuleValue> RulePatch::ConstraintValues(const std::string& constraint) const {
    std::vector<RuleValue> values;
    std::ranges::copy_if(m_values, std::back_inserter(values), [&](const RuleValue& value) {
        return value.location.constraint >= 0 && value.key.starts_with(constraint + "/");
    });
    return values;
}

void RulePatch::AddValue(const Difference& difference) {
    std::string key = RestOf(difference);
    const std::string first = KeyParts(key)[0];
    if (IsConstraintKey(first) && !HasConstraint(first)) return m_conflicts.AddMissing(FullKey(first));
    if (!difference.table.empty()) {
        const int row = FindRow(difference);
        if (!row) return m_conflicts.AddMissing(FullKey(RowKey(difference.table, difference.row)));
        key = CellKey(difference.table, row, ColumnOfKey(difference.table, key));
    }
    const RuleValue* found = m_index.FindCounterpart({.key = key});
    const bool isOptional = !difference.left || !difference.right;
    if (!found && !isOptional) {
        m_unknownKey = FullKey(key);
    } else if (Decide(FullKey(key), difference, found)) {
        m_edits.values.push_back({key, difference.right});
    }
}

// Whether the value is to be set.
bool RulePatch::Decide(const std::string& key, const Difference& difference, const RuleValue* found) {
    const RuleValue *left = PointerTo(difference.left), *right = PointerTo(difference.right);
    if (IsSame(found, right)) return false;
    return IsSame(found, left) || m_conflicts.Add({key, TextOf(left), TextOf(found), TextOf(right)});
}

bool RulePatch::TableRows::IsOfPatch(int row) const {
    return std::ranges::find(rowOfPatch, row) != rowOfPatch.end();
}

RulePatch::TableRows& RulePatch::Table(const std::string& table) {
    const auto [found, isNew] = m_tables.try_emplace(table);
    if (!isNew) return found->second;
    found->second.rows = TablesOf(m_values)[table];
    const auto rows = std::ranges::find(m_patch.tables, FullKey(table), &Patch::Table::key);
    if (rows == m_patch.tables.end()) return found->second;
    found->second.rowOfPatch.resize(rows->rows.size());
    for (const RowPair& pair : AlignRows(rows->rows, found->second.rows))
        if (pair.left) found->second.rowOfPatch[static_cast<std::size_t>(pair.left - 1)] = pair.right;
    return found->second;
}

// The document's row for a row of the patch's left document; 0 for none.
int RulePatch::FindRow(const Difference& difference) {
    const std::vector<int>& rows = Table(difference.table).rowOfPatch;
    const auto index = static_cast<std::size_t>(difference.row - 1);
    return index < rows.size() ? rows[index] : 0;
}

void RulePatch::AddRow(const Difference& difference) {
    const std::string constraint = ConstraintOfTable(difference.table);
    const bool isThere = constraint.empty() || HasConstraint(constraint);
    if (difference.right)
        return isThere ? InsertRow(difference) : m_conflicts.AddMissing(FullKey(constraint));
    const int row = FindRow(difference);
    if (!row) return;
    const BandRow& found = Table(difference.table).rows[static_cast<std::size_t>(row - 1)];
    const std::string unequal = DescribeUnequal(m_ruleKey, difference.scope, difference.values, found);
    if (unequal.empty() ||
        m_conflicts.Add({FullKey(RowKey(difference.table, row)), kPresent, unequal, kNone}))
        m_edits.rows.push_back({difference.table, row});
}

// The row behind which an added one belongs: behind the same one as in the patch, and behind those with a
// lower bound that the document has in addition.
int RulePatch::FindPlaceFor(const Difference& difference) {
    const TableRows& table = Table(difference.table);
    int row = 0;
    for (int before = difference.after; before > 0 && row == 0; --before)
        row = table.rowOfPatch[static_cast<std::size_t>(before - 1)];
    while (row < static_cast<int>(table.rows.size()) && !table.IsOfPatch(row + 1) &&
           LowerBound(table.rows[static_cast<std::size_t>(row)]) < LowerBound(difference.values))
        ++row;
    return row;
}

void RulePatch::InsertRow(const Difference& difference) {
    const TableRows& table = Table(difference.table);
    for (int row = 1; row <= static_cast<int>(table.rows.size()); ++row) {
        const BandRow& found = table.rows[static_cast<std::size_t>(row - 1)];
        if (table.IsOfPatch(row) || !HaveSameBounds(found, difference.values)) continue;
        const std::string unequal = DescribeUnequal(m_ruleKey, difference.scope, difference.values, found);
        if (unequal.empty() ||
            !m_conflicts.Add({FullKey(RowKey(difference.table, row)), kNone, unequal, kPresent}))
            return;
        m_edits.rows.push_back({difference.table, row});
    }
    m_edits.rows.push_back({difference.table, FindPlaceFor(difference), true, difference.values});
}

void RulePatch::AddConstraint(const Difference& difference) {
    const std::string key = RestOf(difference);
    const std::vector<RuleValue> found = ConstraintValues(key);
    if (found.empty() && difference.left) return;
    if (!found.empty()) {
        const std::string unequal = DescribeUnequal(m_ruleKey, difference.scope, difference.values, found);
        if (unequal.empty() && difference.right) return;
        if (!unequal.empty() && !m_conflicts.Add({difference.key, difference.left ? kPresent : kNone, unequal,
                                                  difference.right ? kPresent : kNone}))
            return;
        m_edits.removedConstraints.push_back(key);
    }
    if (difference.right) m_edits.addedConstraints.push_back(difference.values);
}
