// What rule dialogs ask the material database.
#pragma once

#include "MfxMaterials.h"

// The database's library, which the host has loaded beside the module; null when it has not.
HMODULE FindDatabaseModule();

// The name of the database, from the library that the host has loaded beside the module. Otherwise returns
// the id of the text that says what is missing.
UINT FindDatabaseName(CString& strName);

// The material groups of sand castings. False when there is nobody to ask.
bool ListMaterialGroups(std::vector<CString>& groups);

// What is wrong with the database: the id of its text, and the text with what the database says about it.
UINT GetProblemText(MfxDatabaseProblem_e problem);
CString GetProblemText(const MfxDatabaseResult& result);
