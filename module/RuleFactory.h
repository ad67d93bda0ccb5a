#pragma once

#include "MfxRule.h"

// Creates one rule of each kind that the module has, in the module's order, and appends them to the array. A
// rule that can't be created is left out.
void AppendAllRules(MfxRuleArray& rules);

// The rule that a "Rule" record of this module names, not yet populated; null when it names none. Names are
// compared in the default language and without regard to letter case.
CMfxRule* CreateRuleForRecord(MfxXMLNode& record);

// Prepares an existing rule for a record whose constraints may differ from the rule's own.
void PrepareForRecord(CMfxRule& rule);

// Whether the record is this module's.
bool IsRecordOfThisModule(const MfxXMLNode& record);
