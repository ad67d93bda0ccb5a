#pragma once

#include "Reporter.h"

// The material table of older records of the uniform thickness rule, and the parameter that switches it on:
// numbers that can't be read, and content that would be lost when the rule writes constraints in their place.
void CheckLegacyTable(const Reporter& reporter);
