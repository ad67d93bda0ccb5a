#pragma once

#include "RuleValues.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

// The bands of a material group or of a draft angle table, by which castings are measured.
class CastingBands {
  public:
    struct Band {
        std::string key;                                // of the whole row in its rule: "Steel/band/2"
        int row;                                        // from 1
        double sizeMin, sizeMax, weightMin, weightMax;  // kValueNotGiven where there is no bound
        std::vector<std::string> boundKeys, limitKeys;
    };

    explicit CastingBands(std::vector<Band> bands) : m_bands(std::move(bands)) {}

    bool IsEmpty() const { return m_bands.empty(); }
    bool NeedSize() const;
    bool NeedWeight() const;

    // The first band that holds the casting, bounds included; null when none does.
    const Band* Find(std::optional<double> size, std::optional<double> weight) const;

    // "size from 0 to 1500 mm" of one band, or of all of them together.
    static std::string Describe(const Band& band, const RuleUnits& units);
    std::string Describe(const RuleUnits& units) const;

  private:
    std::vector<Band> m_bands;
};

// The bands of a size-and-weight rule's group, by the keys of its values. Those by which no wall thickness
// can be found are left out.
using ValuesByKey = std::map<std::string, const RuleValue*>;
CastingBands BandsOfGroup(const ValuesByKey& values, const std::string& groupKey);

// The bands of a draft angle rule. Those that its dialog passes over are left out.
CastingBands BandsOfDraftTable(const ValuesByKey& values);
