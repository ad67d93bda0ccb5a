#pragma once

#include "BandRows.h"
#include "RuleContent.h"
#include "RuleDocument.h"

#include <optional>
#include <string>
#include <vector>

// What a difference is about.
enum class DifferenceScope { Value, Row, Constraint, Rule };

// Where two documents differ: in a value, or in a whole row of bands, constraint or rule that only one of
// them has.
struct Difference {
    DifferenceScope scope = DifferenceScope::Value;
    std::string rule;             // name in the user's language, or as the record says it
    int ruleId = 0;               // 0 of a record that the module does not know
    std::string key;              // ValueKey.h; of what only the right document has its key there
    long paramId = 0;             // 0 when it is not about a parameter
    std::string constraint = {};  // empty for the rule's own values
    std::string label;            // what the value is; "band", "constraint" or "rule" for a whole one
    std::string table = {};       // of a row, and of a value in one: the table's key in its rule
    int row = 0;                  // from 1, as in the key; 0 outside lists and tables
    int after = 0;        // of an added row: the left document's row before it; 0 when it is the first
    BandRow bounds = {};  // of a row, and of a value in one
    std::vector<RuleValue> values = {};    // of a whole one: what it says on the side that has it
    std::optional<RuleValue> left, right;  // empty on the side without it; of a whole one "present"
};

// The key of the rule that the difference is in.
inline std::string RuleKeyOf(const Difference& difference) {
    return RuleOfKey(difference.key);
}

// The differences, in the units that both contents are in. Rules and constraints are compared with those of
// the same key, bands with those that they are aligned with (BandRows.h). Of records that the module does not
// know the texts are compared.
std::vector<Difference> CompareContents(const std::vector<RuleContent>& left,
                                        const std::vector<RuleContent>& right);

// In the units of the left document.
std::vector<Difference> CompareDocuments(const RuleDocument& left, const RuleDocument& right);
