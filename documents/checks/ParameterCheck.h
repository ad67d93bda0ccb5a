#pragma once

#include "Reporter.h"

// The "Parameter" elements of a rule or a constraint against the parameters that the rule knows there.
void CheckParameters(const Reporter& reporter, const MfxXMLNode& parent, const MfxParamArray& params);

// The label of the mass unit, where the rule has one.
void CheckMassUnit(const Reporter& reporter);
