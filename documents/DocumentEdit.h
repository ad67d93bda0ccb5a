#pragma once

#include "EditError.h"
#include "RuleDocument.h"
#include "RuleEdit.h"

#include <set>
#include <string>

// Changes values of a document by their keys (ValueKey.h). The document is of no use after an EditError.
class DocumentEdit {
  public:
    explicit DocumentEdit(RuleDocument& document) : m_document(document) {}

    // Sets a value to what people type: "6mm", "0.25 in", "no limit", "-" for not given, "yes". A number
    // without a unit is in that of the rule. A key of the row after the last one adds that row. A whole row
    // or constraint is added by "present" and removed by "none".
    void Set(const std::string& key, const std::string& text);

    // Replaces the bands of a draft angle rule.
    void SetDraftBands(const std::string& ruleKey, const std::vector<MfxTableRow>& bands);

    // Checks the rules that were changed as their dialogs would, and brings their records up to date.
    void Finish();

  private:
    const RuleDocument::Entry& RequireEntry(const std::string& key) const;
    void SetWhole(const RuleDocument::Entry& entry, const WholePlace& place, const std::string& key,
                  const std::string& text);

    RuleDocument& m_document;
    std::set<const RuleDocument::Entry*> m_changed;
};
