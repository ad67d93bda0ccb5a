#pragma once

#include "IMaterialDatabase.h"
#include "Sqlite.h"

// Hands over all materials as comma-separated values, piece by piece.
void ExportMaterials(const Connection& connection, const MaterialExportOptions& options,
                     const std::function<void(std::string_view)>& write);
