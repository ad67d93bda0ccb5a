// The material database as programs use it that load its library. Dialogs of modules reach it by
// mfx_db::MFXDataHelper: the library sets itself there when it is loaded, and goes when it is unloaded.
//
// The database is one SQLite file. It is made on first use, with the default materials.
//
// Its materials travel as comma-separated values by RFC 4180, in UTF-8 with or without a byte-order mark.
// Numbers have a decimal point; what is not known is empty. The headings may stand in any order, and name the
// units:
//
//     Process,Family,Group,Material,Density [g/cm3],Minimum wall thickness [mm],Maximum wall thickness [mm]
//     Sand Casting,Cast Iron,Iron,Gray Cast Iron,,3.18,4.76
//     Sand Casting,,Other Metals,,,,
//
// A new group without a family is its own; one that is there keeps its family. A line without a material
// stands for the group alone.
#pragma once

#include "MfxMaterials.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

inline constexpr wchar_t kDatabaseLibrary[] = L"MFXDatabaseu.dll";

// Names the file to use instead of the one in the user's application-data folder.
inline constexpr wchar_t kDatabaseVariable[] = L"MFX_MATERIAL_DATABASE";

// What an import has done, or would do.
struct MaterialImportCounts {
    std::int64_t added = 0;
    std::int64_t changed = 0;
    std::int64_t unchanged = 0;
    std::int64_t badLines = 0;  // with any of them nothing is written
};

// Called while an import runs. Texts are UTF-8.
struct MaterialImportEvents {
    std::function<void(std::uint64_t line, const std::string& flaw)> badLine;
    std::function<void(std::uint64_t bytesRead, std::uint64_t bytesOfFile)> progress;
};

// How materials are exported.
struct MaterialExportOptions {
    // Nothing: the unit in which all of the figures stand in the database, or kg/m3 and mm if they differ.
    std::optional<MfxDensityUnit_e> densityUnit;
    std::optional<MfxLengthUnit_e> wallUnit;
    bool hasByteOrderMark = false;
};

class IMaterialDatabase {
  public:
    virtual ~IMaterialDatabase() = default;

    // The file: the one that was set here, or that of the environment variable, or that of the user.
    virtual CString GetPath() const = 0;
    virtual void SetPath(const CString& path) = 0;

    // Adds the materials of a file, and changes those that are there already, in one transaction. The result
    // is no problem when lines are bad: those are told by the events. A dry run writes nothing. The problem
    // DatabaseRefused concerns the file of materials.
    virtual MfxDatabaseResult ImportCsv(const CString& csvPath, bool isDryRun,
                                        const MaterialImportEvents& events, MaterialImportCounts& counts) = 0;

    // Hands over all materials, piece by piece.
    virtual MfxDatabaseResult ExportCsv(const MaterialExportOptions& options,
                                        const std::function<void(std::string_view)>& write) = 0;
};

// The exports, undecorated. Both sides are built with the same MFC and C++ runtime. The library declares them
// as: extern "C" GetDatabaseFunction GetMaterialDatabase;
using GetDatabaseNameFunction = void(CString& name);
using GetDatabaseFunction = IMaterialDatabase*();
inline constexpr char kDatabaseNameExport[] = "GetModuleName";
inline constexpr char kDatabaseExport[] = "GetMaterialDatabase";
