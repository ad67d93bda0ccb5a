#include "RuleEdits.h"

#include "EditError.h"
#include "OptionalValues.h"
#include "RuleContent.h"
#include "RuleSetters.h"
#include "Text.h"
#include "TypedValue.h"

#include <algorithm>
#include <set>

namespace {

bool IsNumber(const RuleValue& place) {
    return place.kind == ValueKind::Number || place.kind == ValueKind::Cell ||
           place.kind == ValueKind::Deviation;
}

// The constraint part of a value's key, and what comes behind it.
std::pair<std::string, std::string> SplitKey(const std::string& key) {
    const std::size_t end = key.find('/');
    return {key.substr(0, end), end == std::string::npos ? "" : key.substr(end + 1)};
}

// What makes the values of one list those of another, but for what stands in tables of bands.
std::vector<RuleEdits::Value> ValueEdits(const std::vector<RuleValue>& from,
                                         const std::vector<RuleValue>& to) {
    std::vector<RuleEdits::Value> edits;
    const RuleValueIndex index(to);
    for (const RuleValue& value : from)
        if (value.table.empty() && !index.FindCounterpart(value)) edits.push_back({value.key, std::nullopt});
    for (const RuleValue& value : to)
        if (value.table.empty()) edits.push_back({value.key, value});
    return edits;
}

bool IsYes(const RuleValue& value) {
    return value.content == ValueContent("yes");
}

class EditApplier {
  public:
    EditApplier(RuleDocument& document, const RuleDocument::Entry& entry, const RuleEdits& edits)
        : m_document(document), m_entry(entry), m_edits(edits) {}

    // Where no material is as the first one is to be, the limits that are in force stay so.
    void Apply() {
        bool isByMaterial = IsFirstConstraint(Rule(), true);
        for (const RuleEdits::Value& edit : m_edits.values)
            if (edit.key == kByMaterialKey && edit.value) isByMaterial = IsYes(*edit.value);
        SetValues(m_edits.values);
        ChangeRows(m_edits.rows);
        RemoveConstraints();
        if (!m_edits.addedConstraints.empty()) AddConstraints();
        if (Rule().GetRuleId() == kUniformThicknessRuleId) PutFirst(Rule(), isByMaterial);
    }

  private:
    CMfxRule& Rule() const { return *m_entry.rule; }

    // The content for the place, in the rule's units.
    ValueContent ContentFor(const RuleValue& place, const RuleValue& value) const {
        const std::string text = FormatContent(value.content), key = m_entry.key + "/" + place.key + ": ";
        if (const double* number = std::get_if<double>(&value.content)) {
            if (!IsNumber(place)) throw EditError(key + text + " is a number and no text");
            if (*number < 0.0 && !place.table.empty()) throw EditError(key + text + " is negative");
            const std::string unit = UnitSymbol(place.quantity, ComparedUnits(m_edits.units));
            if (value.unit != unit)
                throw EditError(key + "the unit is \"" + value.unit + "\" instead of \"" + unit + "\"");
            return ConvertNumber(*number, place.quantity, ComparedUnits(m_edits.units), UnitsOf(Rule()));
        }
        if (IsNumber(place) && text != "-" && text != "no limit")
            throw EditError(key + "\"" + text + "\" is not a number");
        try {
            return ParseTypedValue(text, place, UnitsOf(Rule()));
        } catch (const EditError& error) {
            throw EditError(key + error.what());
        }
    }

    void Set(const RuleValue& place, const RuleValue& value) {
        SetContent(Rule(), place, ContentFor(place, value));
    }

    // The mass unit comes first: it converts the weights.
    void SetValues(const std::vector<RuleEdits::Value>& values) {
        const std::vector<RuleValue> places = ListRuleValues(Rule());
        const RuleValueIndex index(places);
        std::map<std::string, std::optional<double>> optional;
        for (const bool isMassUnit : {true, false})
            for (const RuleEdits::Value& edit : values) {
                const RuleValue* place = index.FindCounterpart({.key = edit.key});
                if (edit.key == kByMaterialKey) continue;  // when all materials are there
                if ((edit.key == std::to_string(kMassUnitId)) != isMassUnit) continue;
                if (place && edit.value)
                    Set(*place, *edit.value);
                else
                    optional[edit.key] = NumberFor(edit);
            }
        SetOptionalValues(Rule(), optional);
    }

    // Of an element that a list may have or lack.
    std::optional<double> NumberFor(const RuleEdits::Value& edit) const {
        if (!edit.value) return std::nullopt;
        const RuleValue place{
            .key = edit.key, .quantity = QuantityOfOptionalValue(edit.key), .kind = ValueKind::Number};
        return std::get<double>(ContentFor(place, *edit.value));
    }

    // From the last one on, so that the numbers of the others hold.
    void ChangeRows(std::vector<RuleEdits::Row> rows) {
        std::ranges::stable_sort(rows, {},
                                 [](const auto& row) { return std::pair(row.row, row.isInserted); });
        for (auto row = rows.rbegin(); row != rows.rend(); ++row) ChangeRow(*row);
    }

    void ChangeRow(const RuleEdits::Row& row) {
        const int number = row.row + (row.isInserted ? 1 : 0);
        const auto place = FindWholePlace(Rule(), RowKey(row.table, number));
        if (!place) throw EditError(RowKey(row.table, number) + ": there is no such row");
        ChangeWhole(Rule(), *place, row.isInserted);
        for (const RuleValue& value : row.values)
            if (const auto cell = FindCell(Rule(), row.table, number, value.column)) Set(*cell, value);
    }

    void RemoveConstraints() {
        const std::vector<std::string> keys = ConstraintKeys(Rule());
        for (std::size_t i = keys.size(); i-- > 0;)
            if (std::ranges::find(m_edits.removedConstraints, keys[i]) != m_edits.removedConstraints.end())
                ChangeWhole(Rule(), {.constraint = static_cast<int>(i)}, false);
    }

    // All at once, since the rule is made again for it.
    void AddConstraints() {
        if (!HasConstraints(Rule()))
            throw EditError(m_edits.addedConstraints[0][0].key + ": the rule has no constraints");
        std::vector<CString> names;
        for (const std::vector<RuleValue>& values : m_edits.addedConstraints)
            names.push_back(FromUtf8(NameOfKey(SplitKey(values.front().key).first)));
        m_document.AddConstraints(m_entry, names);
        const std::vector<std::string> all = ConstraintKeys(Rule());
        const std::vector<std::string> keys(all.end() - static_cast<std::ptrdiff_t>(names.size()), all.end());
        for (std::size_t i = 0; i < keys.size(); ++i) AddBands(keys[i], m_edits.addedConstraints[i]);
        FillConstraints(keys);
    }

    void AddBands(const std::string& key, const std::vector<RuleValue>& values) {
        std::vector<RuleEdits::Row> rows;
        for (const auto& [table, bands] : TablesOf(values))
            for (const BandRow& band : bands) rows.push_back({key + "/band", 0, true, band});
        ChangeRows(rows);
    }

    // The values outside bands. The keys are those of the new constraints.
    void FillConstraints(const std::vector<std::string>& keys) {
        std::vector<RuleValue> renamed;
        for (std::size_t i = 0; i < keys.size(); ++i)
            for (RuleValue value : m_edits.addedConstraints[i]) {
                value.key = keys[i] + "/" + SplitKey(value.key).second;
                renamed.push_back(std::move(value));
            }
        const std::set<std::string> added(keys.begin(), keys.end());
        std::vector<RuleValue> places = ListRuleValues(Rule());
        std::erase_if(places,
                      [&](const RuleValue& place) { return !added.contains(SplitKey(place.key).first); });
        SetValues(ValueEdits(places, renamed));
    }

    RuleDocument& m_document;
    const RuleDocument::Entry& m_entry;
    const RuleEdits& m_edits;
};

}  // namespace

RuleEdits EditsTo(const CMfxRule& rule, const std::vector<RuleValue>& values, const UnitPair& units) {
    RuleEdits edits{.units = units, .removedConstraints = ConstraintKeys(rule)};
    for (const auto& [table, rows] : TablesOf(ListRuleValues(rule)))
        for (const BandRow& row : rows)
            if (ConstraintOfTable(table).empty()) edits.rows.push_back({table, row[0].row});
    std::map<std::string, std::size_t> constraints;
    std::vector<RuleValue> before = ListRuleValues(rule), after;
    std::erase_if(before, [](const RuleValue& value) { return IsConstraintKey(SplitKey(value.key).first); });
    for (const RuleValue& value : values) {
        const std::string constraint = SplitKey(value.key).first;
        if (!IsConstraintKey(constraint)) {
            after.push_back(value);
            continue;
        }
        const auto [found, isNew] = constraints.emplace(constraint, edits.addedConstraints.size());
        if (isNew) edits.addedConstraints.emplace_back();
        edits.addedConstraints[found->second].push_back(value);
    }
    edits.values = ValueEdits(before, after);
    for (const auto& [table, rows] : TablesOf(values))
        for (const BandRow& row : rows)
            if (ConstraintOfTable(table).empty()) edits.rows.push_back({table, 0, true, row});
    return edits;
}

void ApplyEdits(RuleDocument& document, const RuleDocument::Entry& entry, const RuleEdits& edits) {
    EditApplier(document, entry, edits).Apply();
}
