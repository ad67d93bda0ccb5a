// What a table of wall-thickness limits by material lacks, in the user's language.
#pragma once

#include "MaterialLimitsCheck.h"

// A flaw that the table has.
CString MaterialFlawText(const MaterialLimitsResult& result);
