// What rule dialogs ask the material database.
#pragma once

#include <afx.h>

#include <vector>

// The name of the database, from the library that the host has loaded beside the module. Otherwise returns
// the id of the text that says what is missing.
UINT FindDatabaseName(CString& strName);

// The material groups of sand castings. False when there is nobody to ask.
bool ListMaterialGroups(std::vector<CString>& groups);
