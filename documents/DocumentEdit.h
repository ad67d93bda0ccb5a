#pragma once

#include "EditError.h"
#include "Finding.h"
#include "RuleDocument.h"
#include "RuleEdits.h"
#include "RuleSetters.h"

#include <map>
#include <set>
#include <string>

// Changes values of a document by their keys (ValueKey.h). A rule with content that the module ignores is not
// changed: saving it would drop that content. The document is of no use after an EditError.
class DocumentEdit {
  public:
    explicit DocumentEdit(RuleDocument& document) : m_document(document) {}

    // Sets a value to what people type: "6mm", "0.25 in", "no limit", "-" for not given, "yes". A number
    // without a unit is in that of the rule. A key of the row after the last one adds that row. A whole row
    // or constraint is added by "present" and removed by "none".
    void Set(const std::string& key, const std::string& text);

    // Makes these changes of the rule with that key.
    void Change(const std::string& ruleKey, const RuleEdits& edits);

    // Appends a rule with just these values.
    void AddRule(int ruleId, const std::vector<RuleValue>& values, const UnitPair& units);

    // Replaces the bands of a draft angle rule.
    void SetDraftBands(const std::string& ruleKey, const std::vector<MfxTableRow>& bands);

    // Replace all constraints of a uniform thickness rule, or of a size-and-weight rule. Each name stands
    // once. The first material decides whether the limits by material are in force.
    void SetMaterials(const std::string& ruleKey, const std::vector<MaterialRow>& rows);
    void SetGroups(const std::string& ruleKey, const std::vector<GroupRows>& groups);

    // The rule as it is now.
    const CMfxRule& GetRule(const std::string& ruleKey) const;

    // Checks the rules that were changed as their dialogs would, and brings their records up to date.
    void Finish();

  private:
    const RuleDocument::Entry& RequireEntry(const std::string& key) const;
    const CMfxRule& SetConstraints(const std::string& ruleKey, const std::vector<CString>& names);
    void FindIgnored();
    // The rule that a key begins with, which is changed from now on.
    const RuleDocument::Entry& ChangeEntry(const std::string& key);
    void SetWhole(const RuleDocument::Entry& entry, const WholePlace& place, const std::string& key,
                  const std::string& text);

    RuleDocument& m_document;
    std::map<std::string, Finding> m_ignored;  // the first one of each rule, by the rule's key
    std::set<std::string> m_changed;           // keys of rules
    std::set<std::string> m_typed;             // those that people typed or imported
};

// Throws EditError that names the keys of the document that are the most like this one.
[[noreturn]] void RefuseKey(const RuleDocument& document, const std::string& key);
