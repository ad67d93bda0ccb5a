#pragma once

#include "DatabaseFile.h"
#include "IMaterialDatabase.h"
#include "MFXDataHelper.h"

#include <chrono>
#include <optional>

// The database of the process: for dialogs the collector, for programs import and export. The file is opened
// when it is asked for anything, and again if that failed. No operation throws.
class MaterialDatabase : public IDatabaseCollector, public IMaterialDatabase {
  public:
    bool IsAvailable() const override;

    MfxDatabaseResult GetWriteProblem() const override;
    std::vector<MfxMaterialEntry> GetProcessEntries(const CString& strProcess) const override;
    CString FindMaterialGroups(const CString& strFamily) const override;
    MfxDatabaseResult GetGroups(std::vector<MfxMaterialGroup>& groups) const override;
    MfxDatabaseResult GetMaterials(const MfxGroupKey& group,
                                   std::vector<MfxMaterial>& materials) const override;
    MfxDatabaseResult ApplyChanges(const std::vector<MfxMaterialChange>& changes) override;

    CString GetPath() const override;
    void SetPath(const CString& path) override;
    MfxDatabaseResult ImportCsv(const CString& csvPath, bool isDryRun, const MaterialImportEvents& events,
                                MaterialImportCounts& counts) override;
    MfxDatabaseResult ExportCsv(const MaterialExportOptions& options,
                                const std::function<void(std::string_view)>& write) override;

  private:
    const DatabaseFile& File() const;
    const Connection& Open() const { return *File().connection; }
    const Connection& OpenForWriting() const;  // waits longer for other programs
    template <class Operation>
    MfxDatabaseResult Read(Operation operation) const;

    CString m_path;  // empty: FindDatabasePath tells it
    mutable std::optional<DatabaseFile> m_file;
    mutable MfxDatabaseResult m_locked;  // what reading is told until m_tryAgainAt
    mutable std::chrono::steady_clock::time_point m_tryAgainAt;
};
