#include "MaterialDatabase.h"

#include "DefaultMaterials.h"
#include "MaterialChanges.h"
#include "MaterialExport.h"
#include "MaterialImport.h"
#include "MaterialQueries.h"
#include "Text.h"

namespace {

template <class Operation>
MfxDatabaseResult ResultOf(Operation operation) {
    try {
        operation();
        return {};
    } catch (const DatabaseError& error) {
        return {error.GetProblem(), FromUtf8(error.what())};
    } catch (const std::exception& error) {
        return {DatabaseNotOpened, FromUtf8(error.what())};
    } catch (CException* error) {
        error->Delete();
        return {DatabaseNotOpened, L"the operation failed"};
    }
}

}  // namespace

const DatabaseFile& MaterialDatabase::File() const {
    if (!m_file) m_file = OpenDatabase(GetPath());
    return *m_file;
}

const Connection& MaterialDatabase::OpenForWriting() const {
    if (const std::string& problem = File().writeProblem; !problem.empty())
        throw DatabaseError(DatabaseReadOnly, problem);
    return Open();
}

bool MaterialDatabase::IsAvailable() const {
    std::vector<MfxMaterialGroup> groups;
    return GetGroups(groups).problem == DatabaseNoProblem;
}

MfxDatabaseResult MaterialDatabase::GetWriteProblem() const {
    return ResultOf([&] { OpenForWriting(); });
}

std::vector<MfxMaterialEntry> MaterialDatabase::GetProcessEntries(const CString& strProcess) const {
    std::vector<MfxMaterialEntry> entries;
    ResultOf([&] { entries = ReadProcessEntries(Open(), strProcess); });
    return entries;
}

CString MaterialDatabase::FindMaterialGroups(const CString& strFamily) const {
    CString groups;
    const MfxDatabaseResult result = ResultOf([&] { groups = ReadGroupsOfFamily(Open(), strFamily); });
    return result.problem == DatabaseNoProblem ? groups : FindDefaultGroups(strFamily);
}

MfxDatabaseResult MaterialDatabase::GetGroups(std::vector<MfxMaterialGroup>& groups) const {
    return ResultOf([&] { groups = ReadGroups(Open()); });
}

MfxDatabaseResult MaterialDatabase::GetMaterials(const MfxGroupKey& group,
                                                 std::vector<MfxMaterial>& materials) const {
    return ResultOf([&] { materials = ReadMaterials(Open(), group); });
}

MfxDatabaseResult MaterialDatabase::ApplyChanges(const std::vector<MfxMaterialChange>& changes) {
    return ResultOf([&] {
        Transaction transaction(OpenForWriting());
        MakeChanges(Open(), changes);
        transaction.Commit();
    });
}

CString MaterialDatabase::GetPath() const {
    return m_path.IsEmpty() ? FindDatabasePath() : m_path;
}

void MaterialDatabase::SetPath(const CString& path) {
    m_file.reset();
    m_path = path;
}

MfxDatabaseResult MaterialDatabase::ImportCsv(const CString& csvPath, bool isDryRun,
                                              const MaterialImportEvents& events,
                                              MaterialImportCounts& counts) {
    return ResultOf([&] {
        MaterialImport import(isDryRun ? Open() : OpenForWriting(), csvPath, events);
        import.Read();
        counts.badLines = import.BadLines();
        if (counts.badLines > 0) return;
        counts = isDryRun ? import.Compare() : import.Write();
    });
}

MfxDatabaseResult MaterialDatabase::ExportCsv(const MaterialExportOptions& options,
                                              const std::function<void(std::string_view)>& write) {
    return ResultOf([&] { ExportMaterials(Open(), options, write); });
}
