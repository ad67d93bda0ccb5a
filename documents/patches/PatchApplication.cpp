#include "PatchApplication.h"

#include "DocumentEdit.h"
#include "EditError.h"
#include "ElementXml.h"
#include "RulePatch.h"
#include "Text.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>

namespace {

bool IsByMaterial(const Difference& difference) {
    return difference.key.ends_with("/" + std::string(kByMaterialKey));
}

// A patch that only adds rules fits every document.
void RefuseOtherDocument(const RuleDocument& document, const Patch& patch) {
    std::set<std::string> keys;
    for (const Difference& difference : patch.differences)
        if (difference.scope != DifferenceScope::Rule || difference.left) keys.insert(RuleKeyOf(difference));
    const auto isThere = [&](const std::string& key) { return document.FindEntry(key) != nullptr; };
    if (!keys.empty() && std::ranges::none_of(keys, isThere))
        throw EditError(ToUtf8(document.GetPath()) + ": the patch is of another document: there is no rule " +
                        *keys.begin());
}

class PatchApplier {
  public:
    PatchApplier(RuleDocument& document, const Patch& patch, ConflictChoice choice)
        : m_document(document), m_patch(patch), m_conflicts(choice) {}

    std::vector<Conflict> Apply() {
        for (const Difference& difference : m_patch.differences)
            if (difference.ruleId && !IsByMaterial(difference)) Add(difference);
        // It follows from the materials, and stays where some of them do.
        for (const Difference& difference : m_patch.differences)
            if (IsByMaterial(difference) && !m_conflicts.KeepsPartOf(RuleKeyOf(difference))) Add(difference);
        for (const Patch::Record& record : m_patch.records) AddRecord(record);
        RefuseUnknownKeys();
        if (!m_conflicts.AreOpen()) Change();
        return m_conflicts.Get();
    }

  private:
    void Add(const Difference& difference) {
        const std::string key = RuleKeyOf(difference);
        const RuleDocument::Entry* entry = m_document.FindEntry(key);
        if (difference.scope == DifferenceScope::Rule)
            AddRule(difference, entry);
        else if (!entry)
            m_conflicts.AddMissing(key);
        else
            PatchOf(*entry).Add(difference);
    }

    RulePatch& PatchOf(const RuleDocument::Entry& entry) {
        std::unique_ptr<RulePatch>& patch = m_rules[entry.key];
        if (!patch)
            patch = std::make_unique<RulePatch>(m_patch, entry.key, ValuesIn(*entry.rule, m_patch.units),
                                                m_conflicts);
        return *patch;
    }

    void AddRule(const Difference& difference, const RuleDocument::Entry* entry) {
        if (!entry && difference.left) return;
        if (entry) {
            const std::string unequal = DescribeUnequal(difference.key, difference.scope, difference.values,
                                                        ValuesIn(*entry->rule, m_patch.units));
            if (unequal.empty() && difference.right) return;
            if (!unequal.empty() && !m_conflicts.Add({difference.key, difference.left ? "present" : "(none)",
                                                      unequal, difference.right ? "present" : "(none)"}))
                return;
            m_removed.insert(difference.key);
        }
        if (difference.right) m_added.push_back(&difference);
    }

    void AddRecord(const Patch::Record& record) {
        const RuleDocument::Entry* entry = m_document.FindEntry(record.key);
        if (entry && entry->rule)
            throw EditError(record.key + ": its values are to be changed, not its record");
        const std::string found = entry ? ElementToUtf8(*entry->record) : "";
        if (found == record.right) return;
        const auto describe = [](const std::string& text, const char* word) {
            return text.empty() ? std::string("(none)") : std::string(word);
        };
        if (found == record.left ||
            m_conflicts.Add({record.key, describe(record.left, "present"),
                             describe(found, "present, but otherwise"), describe(record.right, "present")}))
            m_records.push_back(&record);
    }

    void RefuseUnknownKeys() const {
        for (const auto& [key, rule] : m_rules)
            if (!rule->GetUnknownKey().empty()) RefuseKey(m_document, rule->GetUnknownKey());
    }

    // Rules that go are the last to be changed: the keys of others may depend on them.
    void Change() {
        ReplaceRecords();
        DocumentEdit edit(m_document);
        for (const auto& [key, rule] : m_rules)
            if (!rule->GetEdits().IsEmpty()) edit.Change(key, rule->GetEdits());
        edit.Finish();
        const std::vector<RuleDocument::Entry>& entries = m_document.GetEntries();
        for (std::size_t i = entries.size(); i-- > 0;)
            if (m_removed.contains(entries[i].key)) m_document.Remove(entries[i]);
        DocumentEdit additions(m_document);
        for (const Difference* rule : m_added) additions.AddRule(rule->ruleId, rule->values, m_patch.units);
        additions.Finish();
    }

    void ReplaceRecords() {
        for (const Patch::Record* record : m_records) {
            const RuleDocument::Entry* entry = m_document.FindEntry(record->key);
            if (entry && record->right.empty())
                m_removed.insert(record->key);
            else if (entry)
                m_document.ReplaceRecord(*entry, record->right);
            else
                m_document.AppendRecord(record->right);
            if (!entry) entry = &m_document.GetEntries().back();
            if (entry->rule) throw EditError(record->key + ": the record is of a rule that has values");
        }
    }

    RuleDocument& m_document;
    const Patch& m_patch;
    ConflictList m_conflicts;
    std::map<std::string, std::unique_ptr<RulePatch>> m_rules;  // those with changes inside
    std::set<std::string> m_removed;                            // rules, by their keys
    std::vector<const Difference*> m_added;
    std::vector<const Patch::Record*> m_records;
};

}  // namespace

std::vector<Conflict> ApplyPatch(RuleDocument& document, const Patch& patch, ConflictChoice choice) {
    RefuseOtherDocument(document, patch);
    return PatchApplier(document, patch, choice).Apply();
}

// Rules that only one side has changed are taken whole, with what the module does not see in them.
void TakeChangedRecords(const RuleDocument& base, RuleDocument& mine, const RuleDocument& theirs) {
    const auto hasUnits = [&](const RuleDocument& document) {
        return document.GetUnits() == base.GetUnits();
    };
    if (!hasUnits(mine) || !hasUnits(theirs)) return;
    for (const RuleDocument::Entry& before : base.GetEntries()) {
        const RuleDocument::Entry *own = mine.FindEntry(before.key), *other = theirs.FindEntry(before.key);
        if (!own || !other) continue;
        const std::string changed = ElementToUtf8(*other->record), old = ElementToUtf8(*before.record);
        if (ElementToUtf8(*own->record) == old && changed != old) mine.ReplaceRecord(*own, changed);
    }
}

MergeResult MergeDocuments(const RuleDocument& base, RuleDocument& mine, RuleDocument& theirs,
                           MergeChoice choice) {
    if (choice == MergeChoice::Theirs)
        TakeChangedRecords(base, theirs, mine);
    else
        TakeChangedRecords(base, mine, theirs);
    const Patch patch = MakePatch(base, theirs);
    MergeResult result{PatchApplier(mine, patch, ConflictChoice::None).Apply(), &mine};
    if (result.conflicts.empty() || choice == MergeChoice::None) return result;
    if (choice == MergeChoice::Mine) {
        PatchApplier(mine, patch, ConflictChoice::Document).Apply();
    } else {
        PatchApplier(theirs, MakePatch(base, mine), ConflictChoice::Document).Apply();
        result.merged = &theirs;
    }
    return result;
}
