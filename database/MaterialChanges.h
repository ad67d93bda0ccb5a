// The changes of an editor.
#pragma once

#include "MfxMaterials.h"
#include "Sqlite.h"

// Makes the changes in the caller's transaction. Throws DatabaseError (DatabaseRefused) at the first one that
// the database contradicts.
void MakeChanges(const Connection& connection, const std::vector<MfxMaterialChange>& changes);
