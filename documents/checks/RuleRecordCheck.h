#pragma once

#include "Reporter.h"

// The attributes of the document's own element.
void CheckDocumentAttributes(const Reporter& reporter);

// The record of one rule: whether the rule is known, its attributes, parameters and constraints.
void CheckRuleRecord(const Reporter& reporter);

// Rules inside other elements, where nothing reads them.
void CheckNestedRules(const Reporter& reporter);

// What XML does not allow but the document holds.
void CheckXmlFlaws(const Reporter& reporter);
