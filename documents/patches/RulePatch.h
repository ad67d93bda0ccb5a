#pragma once

#include "PatchApplication.h"
#include "RuleEdits.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

// The conflicts of a patch, and how they are decided.
class ConflictList {
  public:
    explicit ConflictList(ConflictChoice choice) : m_choice(choice) {}

    // Whether the patch is right. A place is named once.
    bool Add(const Conflict& conflict);

    // What is to be changed is not there: nothing can be taken from the patch.
    void AddMissing(const std::string& key);

    // Whether something in the rule stays as the document has it.
    bool KeepsPartOf(const std::string& ruleKey) const;

    const std::vector<Conflict>& Get() const { return m_conflicts; }
    bool AreOpen() const { return !m_conflicts.empty() && m_choice == ConflictChoice::None; }

  private:
    ConflictChoice m_choice;
    std::set<std::string> m_keys;
    std::vector<Conflict> m_conflicts;
};

// Finds the places of a patch in a rule, compares, and collects what is to be changed.
class RulePatch {
  public:
    // The rule's values are in the units of the patch.
    RulePatch(const Patch& patch, const std::string& ruleKey, std::vector<RuleValue> values,
              ConflictList& conflicts);

    // A difference of the rule, but for a whole rule.
    void Add(const Difference& difference);

    const RuleEdits& GetEdits() const { return m_edits; }

    // Key of a value that the rule can't have; empty when there is none.
    const std::string& GetUnknownKey() const { return m_unknownKey; }

  private:
    struct TableRows {
        std::vector<BandRow> rows;    // of the document
        std::vector<int> rowOfPatch;  // the document's row for each row of the patch, 0 for none
        bool IsOfPatch(int row) const;
    };

    void AddValue(const Difference& difference);
    void AddRow(const Difference& difference);
    void InsertRow(const Difference& difference);
    void AddConstraint(const Difference& difference);
    bool Decide(const std::string& key, const Difference& difference, const RuleValue* found);
    TableRows& Table(const std::string& table);
    int FindRow(const Difference& difference);
    int FindPlaceFor(const Difference& difference);
    bool HasConstraint(const std::string& key) const { return m_constraintKeys.contains(key); }
    std::vector<RuleValue> ConstraintValues(const std::string& constraint) const;
    std::string RestOf(const Difference& difference) const;
    std::string FullKey(const std::string& key) const { return m_ruleKey + "/" + key; }

    const Patch& m_patch;
    const std::string m_ruleKey;
    const std::vector<RuleValue> m_values;
    const RuleValueIndex m_index;
    const std::set<std::string> m_constraintKeys;
    ConflictList& m_conflicts;
    std::map<std::string, TableRows> m_tables;
    RuleEdits m_edits;
    std::string m_unknownKey;
};

// Where a whole row, constraint or rule says something else: "present, but 19010/Steel/10067 is 5 mm". Empty
// when both say the same.
std::string DescribeUnequal(const std::string& ruleKey, DifferenceScope scope,
                            const std::vector<RuleValue>& expected, const std::vector<RuleValue>& found);
