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

    // Prints to standard error what the converted document does not say to nine digits: a line per value, the
    // largest losses first and no more than ten lines.
    void Print(const RuleDocument& converted) const;

  private:
    UnitPair m_units;
    std::vector<std::vector<RuleValue>> m_values;  // by entry of the document
};
