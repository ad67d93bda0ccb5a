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
    } catch (const CsvError& error) {
        return {DatabaseRefused, FromUtf8(error.what())};
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
    WaitForOthers(Open(), kLongestWaitToWriteMs);
    return Open();
}

// A dialog asks several times in a row. It does not wait for each when another program keeps the file locked.
template <class Operation>
MfxDatabaseResult MaterialDatabase::Read(Operation operation) const {
    using Clock = std::chrono::steady_clock;
    if (Clock::now() < m_tryAgainAt) return m_locked;
    MfxDatabaseResult result = ResultOf([&] {
        WaitForOthers(Open(), kLongestWaitToReadMs);
        operation(Open());
    });
    if (result.problem == DatabaseLocked) {
        m_locked = result;
        m_tryAgainAt = Clock::now() + std::chrono::seconds(1);
    }
    return result;
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
    Read([&](const Connection& connection) { entries = ReadProcessEntries(connection, strProcess); });
    return entries;
}

CString MaterialDatabase::FindMaterialGroups(const CString& strFamily) const {
    CString groups;
    const MfxDatabaseResult result =
        Read([&](const Connection& connection) { groups = ReadGroupsOfFamily(connection, strFamily); });
    return result.problem == DatabaseNoProblem ? groups : FindDefaultGroups(strFamily);
}

MfxDatabaseResult MaterialDatabase::GetGroups(std::vector<MfxMaterialGroup>& groups) const {
    return Read([&](const Connection& connection) { groups = ReadGroups(connection); });
}

MfxDatabaseResult MaterialDatabase::GetMaterials(const MfxGroupKey& group,
                                                 std::vector<MfxMaterial>& materials) const {
    return Read([&](const Connection& connection) { materials = ReadMaterials(connection, group); });
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
