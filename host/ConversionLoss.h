#pragma once

#include "RuleDocument.h"
#include "RuleValues.h"

#include <vector>

// What a conversion does not keep: numbers that the record holds as texts of six decimals can need more of
// them in the new unit, and empty cells of the draft angle table become zero.
class ConversionLoss {
  public:
    // Remembers the document's values before they are converted.
    explicit ConversionLoss(const RuleDocument& document);

    // Prints to standard error the numbers that are too large in the converted document's units, a line each;
    // false when there are none.
    bool PrintTooLarge(const RuleDocument& converted) const;

    // Prints to standard error what the converted document does not say to nine digits: a line per value, the
    // largest losses first, of equal ones in the document's order, and no more than ten lines unless bAll.
    void Print(const RuleDocument& converted, bool bAll) const;

  private:
    // Calls visit(entry, before, exact, after) for each value: what it was, and what it should be and is in
    // the new units.
    template <class Visit>
    void ForEachValue(const RuleDocument& converted, Visit visit) const;

    UnitPair m_units;
    std::vector<std::vector<RuleValue>> m_values;  // by entry of the document
};
