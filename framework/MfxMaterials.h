// What the material database holds: processes, their material groups, and the materials of each group. Names
// are unique where they stand, without regard to the case of the letters A to Z.
#pragma once

#include "MFXUnitConvertor.h"

#include <afx.h>

#include <optional>
#include <variant>
#include <vector>

// A family of alloys of a process: the names of its material groups; the first empty name ends them.
struct MfxMaterialEntry {
    std::vector<CString> names;
};

// A material group. Its family is its own name unless another is given.
struct MfxMaterialGroup {
    CString strProcess;
    CString strName;
    CString strFamily;
};

// A material and its recommended wall thickness. A figure that is not known is empty.
struct MfxMaterial {
    CString strName;
    std::optional<double> density;
    MfxDensityUnit_e densityUnit = DensityKilogramPerCubicMetre;
    std::optional<double> minimumWall;
    std::optional<double> maximumWall;
    MfxLengthUnit_e wallUnit = LengthMillimetre;
};

// Where a group, or a material of it, stands in the database at the time of a change.
struct MfxGroupKey {
    CString strProcess;
    CString strGroup;
};
struct MfxMaterialKey {
    MfxGroupKey group;
    CString strMaterial;
};

// The changes of an editor. Each finds the database as those before it have left it.
struct MfxAddGroup {
    MfxMaterialGroup group;  // of a process that may be new
};
struct MfxChangeGroup {
    MfxGroupKey key;
    MfxMaterialGroup group;  // its process is not used: a group stays where it is
};
struct MfxDeleteGroup {
    MfxGroupKey key;  // its materials go, too
};
struct MfxAddMaterial {
    MfxGroupKey group;
    MfxMaterial material;
};
struct MfxChangeMaterial {
    MfxMaterialKey key;
    MfxMaterial material;  // with another name: it is renamed
};
struct MfxDeleteMaterial {
    MfxMaterialKey key;
};
using MfxMaterialChange = std::variant<MfxAddGroup, MfxChangeGroup, MfxDeleteGroup, MfxAddMaterial,
                                       MfxChangeMaterial, MfxDeleteMaterial>;

// Why an operation on the database is not possible.
enum MfxDatabaseProblem_e {
    DatabaseNoProblem,
    DatabaseNotLoaded,  // there is no database library in the process
    DatabaseNotOpened,  // the file or its folder can't be read, or not be created
    DatabaseDamaged,    // what stands in the file contradicts itself
    DatabaseForeign,    // the file belongs to another application
    DatabaseTooNew,     // a newer version of the library wrote the file
    DatabaseLocked,     // another program keeps the file locked
    DatabaseDiskFull,
    DatabaseDiskFailed,  // the disk or the network did not do what was asked
    DatabaseReadOnly,    // the file, its folder or its disk can't be written
    DatabaseRefused,     // what was given contradicts itself, or what stands in the database
};

// How an operation ended. The text is English and names the file; dialogs have a text per problem.
struct MfxDatabaseResult {
    MfxDatabaseProblem_e problem = DatabaseNoProblem;
    CString strText;
};
