#include "DatabaseFile.h"

#include "DefaultMaterials.h"
#include "FullPath.h"
#include "IMaterialDatabase.h"
#include "Schema.h"
#include "Text.h"

#include <shlobj.h>
#include <sqlite3.h>

#include <cstdlib>
#include <cstring>

namespace {

struct CoTaskDeleter {
    void operator()(wchar_t* text) const { CoTaskMemFree(text); }
};

CString ApplicationDataFolder() {
    wchar_t* folder = nullptr;
    const HRESULT result = SHGetKnownFolderPath(FOLDERID_RoamingAppData, KF_FLAG_CREATE, nullptr, &folder);
    const std::unique_ptr<wchar_t, CoTaskDeleter> owner(folder);
    if (FAILED(result))
        throw DatabaseError(DatabaseNotOpened, "the user's folder of application data can't be found");
    return folder;
}

bool IsReadOnlyFile(const CString& path) {
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY);
}

// What has a meaning in a URI is written by its number.
std::string ToUri(const CString& path, const char* query) {
    constexpr char kHex[] = "0123456789ABCDEF";
    const bool isOfServer = path.Left(2) == L"\\\\";
    std::string uri = isOfServer ? "file://" : "file:///";
    for (const char ch : ToUtf8(path)) {
        const auto byte = static_cast<unsigned char>(ch);
        if (ch == '\\')
            uri += '/';
        else if (byte < 0x80 && !strchr("%?#", ch))
            uri += ch;
        else
            uri.append({'%', kHex[byte >> 4], kHex[byte & 15]});
    }
    return uri + query;
}

std::unique_ptr<Connection> Open(const CString& path, const std::string& nameOrUri, int flags) {
    auto connection = std::make_unique<Connection>(path, nameOrUri, flags);
    WaitForOthers(*connection, kLongestWaitToReadMs);
    connection->Execute("PRAGMA foreign_keys = ON; PRAGMA cache_size = -8192");
    return connection;
}

// Opens the file for writing, or for reading where that is all that can be had.
std::unique_ptr<Connection> OpenAtAll(const CString& path) {
    if (IsReadOnlyFile(path)) return Open(path, ToUtf8(path), SQLITE_OPEN_READONLY);
    return Open(path, ToUtf8(path), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
}

// A write-ahead log needs files beside the database. Where no folder lets them be made, and no other program
// has left any, nobody writes, and the database can be read without them.
std::unique_ptr<Connection> OpenInReadOnlyFolder(const CString& path) {
    for (const CString& file : {path + L"-wal", path + L"-journal"})
        if (GetFileAttributesW(file) != INVALID_FILE_ATTRIBUTES) return nullptr;
    return Open(path, ToUri(path, "?immutable=1"), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
}

SchemaState OpenAndRead(const CString& path, std::unique_ptr<Connection>& connection) {
    try {
        connection = OpenAtAll(path);
        return FindSchemaState(*connection);
    } catch (const DatabaseError& error) {
        if (error.GetProblem() != DatabaseNotOpened && error.GetProblem() != DatabaseReadOnly) throw;
        std::unique_ptr<Connection> readOnly = OpenInReadOnlyFolder(path);
        if (!readOnly) throw;
        connection = std::move(readOnly);
        return FindSchemaState(*connection);
    }
}

// The programs that use a write-ahead log share memory, which those of several machines can't.
bool IsOnLocalDisk(const CString& path) {
    wchar_t root[MAX_PATH] = L"";
    return GetVolumePathNameW(path, root, MAX_PATH) && GetDriveTypeW(root) == DRIVE_FIXED;
}

// A file keeps its kind of journal when it is copied to another disk.
void ChooseJournal(const Connection& connection, const CString& path) {
    try {
        const bool isLocal = IsOnLocalDisk(path);
        Statement(connection, isLocal ? "PRAGMA journal_mode = WAL" : "PRAGMA journal_mode = DELETE").Step();
    } catch (const DatabaseError&) {
        // The journal that the file has does as well. Another program may be switching it at this moment.
    }
}

bool IsReadOnly(const Connection& connection) {
    return sqlite3_db_readonly(connection.Get(), "main") == 1;
}

// Another program may be doing the same at this moment.
void BringUpToDate(const Connection& connection) {
    WaitForOthers(connection, kLongestWaitToWriteMs);
    Transaction transaction(connection);
    const SchemaState state = FindSchemaState(connection);
    if (state == SchemaState::Current) return;
    UpdateSchema(connection);
    if (state == SchemaState::Empty) AddDefaultMaterials(connection);
    transaction.Commit();
}

}  // namespace

void WaitForOthers(const Connection& connection, int longestMs) {
    sqlite3_busy_timeout(connection.Get(), longestMs);
}

CString FindDatabasePath() {
    if (const wchar_t* path = _wgetenv(kDatabaseVariable); path && *path) {
        if (IsFullPath(path)) return path;
        throw DatabaseError(DatabaseNotOpened, ToUtf8(kDatabaseVariable) + " is \"" + ToUtf8(path) +
                                                   "\"; it has to be a full path, from the drive or the "
                                                   "server on");
    }
    const CString folder = ApplicationDataFolder() + L"\\MfxKit";
    CreateDirectoryW(folder, nullptr);  // where that fails, the file can't be opened, which is told
    return folder + L"\\materials.db";
}

DatabaseFile OpenDatabase(const CString& path) {
    const CString fullPath = FullPath(path);
    DatabaseFile file;
    const SchemaState state = OpenAndRead(fullPath, file.connection);
    if (IsReadOnly(*file.connection)) {
        const std::string name = ToUtf8(fullPath);
        if (state != SchemaState::Current)
            throw DatabaseError(
                DatabaseReadOnly,
                name + " is from an older version, and read-only: it can't be brought up to date");
        file.writeProblem =
            name + (IsReadOnlyFile(fullPath) ? " is read-only" : ": its folder or its disk can't be written");
        return file;
    }
    ChooseJournal(*file.connection, fullPath);
    if (state != SchemaState::Current) BringUpToDate(*file.connection);
    WaitForOthers(*file.connection, kLongestWaitToReadMs);
    return file;
}
