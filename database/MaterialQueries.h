// Reading the materials; everything in the order in which it was added.
#pragma once

#include "IMaterialDatabase.h"
#include "MFXDataHelper.h"
#include "Sqlite.h"

std::vector<MfxMaterialEntry> ReadProcessEntries(const Connection& connection, const CString& process);

// Each followed by ";".
CString ReadGroupsOfFamily(const Connection& connection, const CString& family);

std::vector<MfxMaterialGroup> ReadGroups(const Connection& connection);
std::vector<MfxMaterial> ReadMaterials(const Connection& connection, const MfxGroupKey& group);

// The unit in which all figures of a kind stand; the first of the kind if they differ or if there are none.
MfxDensityUnit_e FindCommonDensityUnit(const Connection& connection);
MfxLengthUnit_e FindCommonWallUnit(const Connection& connection);
