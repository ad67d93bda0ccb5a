#pragma once

#include "MaterialLimitsCheck.h"

// The materials to choose from, each once, with their usual limits in a length unit (MfxLengthUnit_e): first
// those of the rule's category, then those of the group in the material database, whose limits come before
// the category's. A limit that is not known is empty. Without a database only the former.
std::vector<MaterialLimitTexts> ListMaterialChoices(int nCategory, const CString& strGroup, int nLengthUnit);

// Adds the materials of a table that are not among the choices. A drop-down list that lacks a cell's text
// would put another in its place.
void AddMissingChoices(std::vector<MaterialLimitTexts>& choices,
                       const std::vector<MaterialLimitTexts>& table);
