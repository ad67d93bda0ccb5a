// Whether a rule's values make sense; a function for each kind of rule. Bands are checked as their dialogs
// do. Values that the module ignores are not checked.
#pragma once

#include "Reporter.h"

#include <initializer_list>
#include <set>
#include <tuple>

// The values that are the subject of findings about ignored content.
class IgnoredValues {
  public:
    explicit IgnoredValues(const std::vector<Finding>& findings);

    // Whether one of the parameters of a rule (constraint -1), or of one of its constraints, is ignored.
    bool HasAnyOf(int entry, int constraint, std::initializer_list<long> paramIds) const;

  private:
    std::set<std::tuple<int, int, long>> m_values;  // entry, constraint and parameter
};

// One rule of the document, whose values are to be checked.
struct RuleToCheck {
    const Reporter& reporter;
    const IgnoredValues& ignored;

    const CMfxRule& Rule() const { return reporter.GetRule(); }
    bool IsRead(int constraint, std::initializer_list<long> paramIds) const;
};

// Limits of the wall thickness above zero and not contradicting each other; older forms of records.
void CheckThicknessLimits(const RuleToCheck& rule);

// Bands of cast size and weight, by material group.
void CheckGroupBands(const RuleToCheck& rule);

// Bands of size with draft angles.
void CheckDraftAngles(const RuleToCheck& rule);

// The allowed variation of the wall thickness.
void CheckVariation(const RuleToCheck& rule);
