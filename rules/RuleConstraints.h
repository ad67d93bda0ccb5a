// What rules with constraints do alike.
#pragma once

#include "MfxRule.h"
#include "RuleParameters.h"

#include <span>

// What a "Constraint" element says of itself.
struct ConstraintAttributes {
    CString strName;
    CString strStatus;
};

// Reads the attributes "Type", "Value" and "Status"; false when one of them is missing.
bool ReadConstraintAttributes(const MfxXMLNode& element, ConstraintAttributes& attributes);

// Creates a constraint by material with an empty parameter of numbers per spec. Null, with nothing left
// behind, when a part can't be created.
CMFXConstraint* CreateConstraintWithParameters(CMfxRule& rule, const CString& strName, bool bActive,
                                               std::span<const ParameterSpec> specs, bool bParametersActive);

// Whether the constraint has every parameter of the specs.
bool HasParameters(const CMFXConstraint& constraint, std::span<const ParameterSpec> specs);

// Empties those parameters of every constraint that has them all, so that a record can fill them again.
// Nothing is emptied when the record has another number of constraints: then the reader fills none of them.
void EmptyConstraintsForReading(CMfxRule& rule, const MfxXMLNode& record,
                                std::span<const ParameterSpec> specs);
