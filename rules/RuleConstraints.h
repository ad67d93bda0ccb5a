// Functions that rules with constraints share.
#pragma once

#include "MfxRule.h"
#include "RuleParameters.h"

#include <span>

// The attributes of a "Constraint" element.
struct ConstraintAttributes {
    CString strName;
    CString strStatus;
};

// Reads the attributes "Type", "Value" and "Status"; false when one of them is missing.
bool ReadConstraintAttributes(const MfxXMLNode& element, ConstraintAttributes& attributes);

// Creates a constraint by material, with an empty list of numbers for each spec. Returns null and leaves
// nothing behind when a part can't be created.
CMFXConstraint* CreateConstraintWithParameters(CMfxRule& rule, const CString& strName, bool bActive,
                                               std::span<const ParameterSpec> specs, bool bParametersActive);

bool HasParameters(const CMFXConstraint& constraint, std::span<const long> paramIds);

// Empties these parameters before a record is read, in every constraint that has all of them. Empties nothing
// when the record has another number of constraints, because then the reader fills none.
void EmptyConstraintsForReading(CMfxRule& rule, const MfxXMLNode& record, std::span<const long> paramIds);
