#pragma once

#include "MfxRule.h"

// Creates one rule of each kind that the module has, in the module's order, and appends them to the array. A
// rule that can't be created is left out.
void AppendAllRules(MfxRuleArray& rules);

// The rule that a "Rule" record describes, not yet populated; null when the record is another module's or
// names no rule of this one. Names are compared in the default language and without regard to letter case.
CMfxRule* CreateRuleForRecord(MfxXMLNode& record);

// Makes a rule that is already there take a record that may hold other constraints than the rule has.
void PrepareForRecord(CMfxRule& rule);

// Whether the record is this module's.
bool IsRecordOfThisModule(const MfxXMLNode& record);
