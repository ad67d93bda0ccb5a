#pragma once

#include "Reporter.h"

// A parameter's "ResultCriteria": three maps of deviations, each entry named by its severity.
void CheckCriteria(const Reporter& reporter, const MfxXMLNode& criteria);
