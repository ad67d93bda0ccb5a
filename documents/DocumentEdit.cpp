#include "DocumentEdit.h"

#include "DocumentCheck.h"
#include "DraftTableCheck.h"
#include "NearestKeys.h"
#include "RuleRefusal.h"
#include "RuleSetters.h"
#include "Text.h"
#include "TypedValue.h"

#include <algorithm>
#include <iterator>

namespace {

std::string RestOf(const RuleDocument::Entry& entry, const std::string& key) {
    return key.substr(std::min(entry.key.size() + 1, key.size()));
}

// All keys that can be set; for suggestions.
std::vector<std::string> KeysOf(const RuleDocument& document) {
    std::vector<std::string> keys;
    for (const RuleDocument::Entry& entry : document.GetEntries())
        if (entry.rule)
            for (const RuleValue& value : ListRuleValues(*entry.rule))
                keys.push_back(entry.key + "/" + value.key);
    return keys;
}

template <class Row>
std::vector<CString> NamesOf(const std::vector<Row>& rows) {
    std::vector<CString> names;
    for (const Row& row : rows) names.push_back(row.name);
    return names;
}

// The limits of a material are on or off with it, as in the dialog.
void SwitchLimits(CMfxRule& rule, int material) {
    if (rule.GetRuleId() != kUniformThicknessRuleId) return;
    for (const MfxParamRecord& limit : rule.m_constraintArray[material]->m_paramArray)
        limit.m_pStorage->m_bStatus = rule.m_constraintArray[material]->m_bActive;
}

bool IsUpperSize(const RuleValue& place) {
    return place.kind == ValueKind::Cell ? place.cell == DraftCell::UpperBound
                                         : place.location.paramId == kSizeMaxId;
}

const RuleValue* FindByKey(const std::vector<RuleValue>& values, const std::string& key) {
    const auto found = std::ranges::find(values, key, &RuleValue::key);
    return found != values.end() ? &*found : nullptr;
}

}  // namespace

void RefuseKey(const RuleDocument& document, const std::string& key) {
    throw EditError(key + ": there is no such value; the nearest keys are " +
                    NearestKeys(KeysOf(document), key));
}

const RuleDocument::Entry& DocumentEdit::RequireEntry(const std::string& key) const {
    const RuleDocument::Entry* const entry = m_document.FindEntry(RuleOfKey(key));
    if (!entry || !entry->rule) RefuseKey(m_document, key);
    return *entry;
}

// Once, since it checks the whole document. Edits add nothing to it.
void DocumentEdit::FindIgnored() {
    for (const Finding& finding : FindIgnoredContent(m_document))
        if (finding.entry >= 0)
            m_ignored.emplace(m_document.GetEntries()[static_cast<std::size_t>(finding.entry)].key, finding);
}

const RuleDocument::Entry& DocumentEdit::ChangeEntry(const std::string& key) {
    const RuleDocument::Entry& entry = RequireEntry(key);
    if (m_changed.empty()) FindIgnored();
    if (!m_changed.insert(entry.key).second) return entry;
    const auto ignored = m_ignored.find(entry.key);
    if (ignored != m_ignored.end())
        throw EditError(LinePrefix(m_document.GetPath(), ignored->second.line) +
                        DescribeFinding(ignored->second) + "; the rule can't be changed without losing it");
    return entry;
}

void DocumentEdit::Set(const std::string& key, const std::string& text) {
    const RuleDocument::Entry& entry = ChangeEntry(key);
    const std::string rest = RestOf(entry, key);
    m_typed.insert(entry.key);
    if (const std::optional<WholePlace> whole = FindWholePlace(*entry.rule, rest)) {
        SetWhole(entry, *whole, key, text);
        return;
    }
    std::vector<RuleValue> values = ListRuleValues(*entry.rule);
    if (!FindByKey(values, rest) && AppendRowFor(*entry.rule, rest)) values = ListRuleValues(*entry.rule);
    const RuleValue* place = FindByKey(values, rest);
    if (!place) RefuseKey(m_document, key);
    try {
        const ValueContent content = ParseTypedValue(text, *place, UnitsOf(*entry.rule));
        if (content == ValueContent("no limit") && !IsUpperSize(*place))
            throw EditError("only an upper size may have no limit");
        SetContent(*entry.rule, *place, content);
        if (place->kind == ValueKind::ByMaterial &&
            IsFirstConstraint(*entry.rule, true) != (content == ValueContent("yes")))
            throw EditError(content == ValueContent("yes")
                                ? "no material is active; set one's active to yes first"
                                : "no material is inactive; set one's active to no first");
        if (place->kind == ValueKind::ConstraintActive) SwitchLimits(*entry.rule, place->location.constraint);
    } catch (const EditError& error) {
        throw EditError(key + ": " + error.what());
    }
}

void DocumentEdit::Change(const std::string& ruleKey, const RuleEdits& edits) {
    ApplyEdits(m_document, ChangeEntry(ruleKey), edits);
}

void DocumentEdit::AddRule(int ruleId, const std::vector<RuleValue>& values, const UnitPair& units) {
    RulePtr rule = m_document.GetModule().CreateDefault(ruleId);
    if (!rule) throw EditError("there is no rule " + std::to_string(ruleId));
    const UnitPair to = m_document.GetUnits(), from{rule->m_nLengthUnit, rule->m_nAngleUnit};
    if (!(from == to)) rule->ConvertUnits(from, to);
    rule->m_nLengthUnit = to.m_nLengthUnit;
    rule->m_nAngleUnit = to.m_nAngleUnit;
    const RuleEdits edits = EditsTo(*rule, values, units);
    m_document.Append(std::move(rule));
    Change(m_document.GetEntries().back().key, edits);
}

void DocumentEdit::SetDraftBands(const std::string& ruleKey, const std::vector<MfxTableRow>& bands) {
    const RuleDocument::Entry& entry = ChangeEntry(ruleKey);
    m_typed.insert(entry.key);
    MfxArray<MfxTableRow>& rows =
        FindParameter(entry.rule->m_paramArray, kDraftAngleTableId)->GetValues<MfxTableRow>();
    rows.RemoveAll();
    for (const MfxTableRow& band : bands) rows.Add(band);
}

const CMfxRule& DocumentEdit::GetRule(const std::string& ruleKey) const {
    return *RequireEntry(ruleKey).rule;
}

void DocumentEdit::SetMaterials(const std::string& ruleKey, const std::vector<MaterialRow>& rows) {
    const CMfxRule& rule = SetConstraints(ruleKey, NamesOf(rows));
    for (std::size_t i = 0; i < rows.size(); ++i)
        FillMaterial(*rule.m_constraintArray[static_cast<int>(i)], rows[i]);
}

void DocumentEdit::SetGroups(const std::string& ruleKey, const std::vector<GroupRows>& groups) {
    const CMfxRule& rule = SetConstraints(ruleKey, NamesOf(groups));
    for (std::size_t i = 0; i < groups.size(); ++i)
        FillGroup(*rule.m_constraintArray[static_cast<int>(i)], groups[i]);
}

// Gives the rule just these constraints, in this order. Those that were there keep what they have.
const CMfxRule& DocumentEdit::SetConstraints(const std::string& ruleKey, const std::vector<CString>& names) {
    const RuleDocument::Entry& entry = ChangeEntry(ruleKey);
    m_typed.insert(entry.key);
    std::set<CString> present;
    for (const CMFXConstraint* constraint : entry.rule->m_constraintArray)
        present.insert(constraint->m_strName);
    std::vector<CString> added;
    std::ranges::copy_if(names, std::back_inserter(added),
                         [&](const CString& name) { return !present.contains(name); });
    if (!added.empty()) m_document.AddConstraints(entry, added);
    SelectConstraints(*entry.rule, names);
    return *entry.rule;
}

void DocumentEdit::SetWhole(const RuleDocument::Entry& entry, const WholePlace& place, const std::string& key,
                            const std::string& text) {
    const bool isPresent = text == "present";
    if (!isPresent && text != "none")
        throw EditError(key + ": it is a whole row or constraint; \"present\" adds it, \"none\" removes it");
    if (place.row == 0 && isPresent == (place.constraint >= 0))
        throw EditError(key + (isPresent ? ": it is there already" : ": it is not there"));
    if (HasControlCharacter(place.name)) throw EditError(key + ": a name has no control characters");
    if (place.row == 0 && isPresent && !HasConstraints(*entry.rule)) RefuseKey(m_document, key);
    if (place.row == 0 && isPresent)
        m_document.AddConstraints(entry, {FromUtf8(place.name)});
    else
        ChangeWhole(*entry.rule, place, isPresent);
}

void DocumentEdit::Finish() {
    for (const std::string& key : m_changed) {
        const RuleDocument::Entry* entry = m_document.FindEntry(key);
        if (m_typed.contains(key)) CloseLastBand(*entry->rule);
        const CString refusal = FindRefusal(*entry->rule);
        if (!refusal.IsEmpty())
            throw EditError(ToUtf8(entry->rule->m_strDisplayName) + " (" + entry->key +
                            "): " + ToUtf8(refusal));
        m_document.StoreRule(*entry);
    }
}
