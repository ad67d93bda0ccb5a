#pragma once

#include "MaterialLimitsCheck.h"

// The materials to choose from, each once, with their usual limits in a length unit (MfxLengthUnit_e): first
// those of the rule's category, then those of the group in the material database. A limit that is not known
// is empty. Without a database only the former.
std::vector<MaterialLimitTexts> ListMaterialChoices(int nCategory, const CString& strGroup, int nLengthUnit);
