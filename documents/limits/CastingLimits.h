#pragma once

#include "CastingBands.h"
#include "RuleDocument.h"

#include <map>
#include <string>
#include <vector>

// What is known of a casting. Size and weight are in the units of the CastingLimits.
struct Casting {
    std::string material = {};  // empty: not given
    std::string group = {};     // empty: the material is one, or it is not given
    std::optional<double> size = {}, weight = {};
};

enum class LimitAnswer {
    Found,
    NotInForce,  // the rule demands nothing, since what would is switched off or not there
    Incomplete,  // the rule needs something that is not given
    NotFound,    // the name is not known, or no band holds the casting
};

// Why a rule demands what it does. Programs act on the keys, which never change.
struct LimitReason {
    const char* key;
    LimitAnswer answer;
};

// What one rule demands of a casting.
struct RuleLimits {
    const RuleDocument::Entry* entry = nullptr;
    LimitReason reason = {};
    std::string text = {};               // the reason, for people
    std::string place = {};              // key of the constraint or band that decides: "19020/Steel/band/2"
    std::vector<RuleValue> bounds = {};  // of the band
    std::vector<RuleValue> limits = {};  // those in force
};

// Which limits castings meet by the rules of a document. Refers to the document.
//
// Letters of names may be small or capital. A band includes both its bounds, and the first band that holds a
// casting decides: so a size on the joint of two bands is in the one that ends there.
class CastingLimits {
  public:
    explicit CastingLimits(const RuleDocument& document);

    // Of sizes and weights: the document's units, with the mass unit of its first size-and-weight rule.
    const RuleUnits& GetUnits() const { return m_units; }
    const RuleDocument& GetDocument() const { return m_document; }

    // What each rule of the document demands, in the document's order.
    std::vector<RuleLimits> Find(const Casting& casting) const;

  private:
    // A rule as it is asked again and again.
    struct RuleIndex {
        const RuleDocument::Entry* entry;
        std::vector<RuleValue> values;
        std::map<std::string, const RuleValue*> valueOfKey;
        std::vector<std::string> constraintKeys;
        std::map<CString, int> constraintOfName;  // also of the name in capital letters
        std::vector<CastingBands> bands;          // of each group, or of the draft angle table
    };

    void Add(const RuleDocument::Entry& entry);
    bool IsMaterial(const std::string& name) const;
    RuleLimits FindFor(const RuleIndex& rule, const Casting& casting) const;
    RuleLimits LimitsOfMaterial(const RuleIndex& rule, const Casting& casting) const;
    RuleLimits LimitsByMaterial(const RuleIndex& rule, const Casting& casting) const;
    RuleLimits LimitsOfGroup(const RuleIndex& rule, const Casting& casting) const;
    RuleLimits UnknownGroup(const RuleIndex& rule, const Casting& casting, const std::string& group) const;
    RuleLimits LimitsOfDraftTable(const RuleIndex& rule, const Casting& casting) const;
    RuleLimits LargestVariation(const RuleIndex& rule) const;
    RuleLimits LimitsOfBand(const RuleIndex& rule, const CastingBands& bands, const Casting& casting,
                            const std::string& owner) const;

    const RuleDocument& m_document;
    RuleUnits m_units;
    std::vector<RuleIndex> m_rules;
};
