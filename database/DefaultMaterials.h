// The materials of a new database: those that the rules' dialogs offer by themselves. Their tables give no
// densities.
#pragma once

#include "Sqlite.h"

// Adds them in the caller's transaction.
void AddDefaultMaterials(const Connection& connection);

// The default groups of a family, each followed by ";", for when there is no database.
CString FindDefaultGroups(const CString& family);
