// clang-format off
// A rule's saved settings: the "Rule" element that hosts keep in their rule document.
//
//   <Rule Name="Variable Draft Angle" Status="0" LifeStatus="0" Summary="..."
//         Module="MFXSandCastingRulesValidator" RuleModule="" RuleModuleFileName="MFXSandCastingRulesu.dll"
//         Severity="2" RuleCategory="Sand Casting">
//     <Parameter .../>       in the rule's order, see ParameterXml.h
//     <Constraint .../>      in the rule's order, see MFXConstraint.h
//   </Rule>
// clang-format on
#pragma once

#include "MfxRule.h"
#include "MfxXMLDocument.h"

// Sets the document in which records are written; not owned, null for none.
void SetRuleDocument(MfxXMLDocument* pDocument);

// A new, unattached "Rule" element; the caller owns the wrapper. Null without a rule or a document. A
// parameter of an unknown value type is reported to the user and left out.
MfxXMLNode* WriteRuleRecord(CMfxRule* pRule);

// Fills the rule from its "Rule" element. Summary and category stay those of the constructor. A parameter of
// an unknown value type is reported to the user and ends the reading: constraints are not read, the rule is
// not populated.
void ReadRuleRecord(CMfxRule* pRule, MfxXMLNode* pNode);
