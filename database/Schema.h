// The tables of the database.
#pragma once

#include "Sqlite.h"

// How far a file is.
enum class SchemaState { Empty, Older, Current };

// Throws DatabaseError when the file is another application's, or has a newer schema.
SchemaState FindSchemaState(const Connection& connection);

// Makes the tables, or brings older ones up to date, in the caller's transaction. Materials are kept.
void UpdateSchema(const Connection& connection);

// Makes the import's own temporary tables, import_group and import_material, empty.
void MakeImportTables(const Connection& connection);
