#pragma once

#include "RuleDocument.h"
#include "RuleValues.h"

#include <string>
#include <vector>

// What a document says of a rule.
struct RuleContent {
    std::string name;      // in the user's language, or as the record says it
    int ruleId = 0;        // 0 of a record that the module does not know
    std::string key = {};  // ValueKey.h
    std::vector<RuleValue>
        values;               // of a record that the module does not know its texts, with paths as labels
    std::string record = {};  // the XML of a record that the module does not know
};

// The contents of a document's rules, in other units.
std::vector<RuleContent> ContentsOf(const RuleDocument& document, const UnitPair& units);

// What the rules of the document are by default, in its order and units.
std::vector<RuleContent> DefaultsFor(const RuleDocument& document);

// The units in which values are compared: masses in kilograms, whatever unit a rule keeps them in.
RuleUnits ComparedUnits(const UnitPair& units);

// A rule's values in those units.
std::vector<RuleValue> ValuesIn(const CMfxRule& rule, const UnitPair& units);
