#pragma once

#include "Reporter.h"

// The "Constraint" elements of a rule's record against the constraints that the rule made of them.
void CheckConstraints(const Reporter& reporter);
