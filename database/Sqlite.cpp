#include "Sqlite.h"

#include "DatabaseError.h"
#include "Text.h"

#include <sqlite3.h>

namespace {

// "CHECK constraint failed: the density is not positive": the schema names its checks by what is wrong.
std::string NameOfCheck(const std::string& message) {
    const std::size_t colon = message.find(": ");
    return colon == std::string::npos ? message : message.substr(colon + 2);
}

std::string SystemReason(int systemError, const std::string& otherwise) {
    return systemError ? WindowsErrorText(static_cast<DWORD>(systemError)) : otherwise;
}

DatabaseError MakeError(const CString& path, int code, int systemError, const std::string& message) {
    const std::string file = ToUtf8(path);
    const int kind = code & 0xFF;
    if (kind != SQLITE_IOERR && kind != SQLITE_CANTOPEN) systemError = 0;  // that of an earlier failure
    if (systemError == ERROR_DISK_FULL || systemError == ERROR_HANDLE_DISK_FULL) code = SQLITE_FULL;
    if (systemError == ERROR_SHARING_VIOLATION) code = SQLITE_BUSY;
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {DatabaseLocked, file + " is locked by another program; try again when that has finished"};
        case SQLITE_FULL:
            return {DatabaseDiskFull, file + " can't be written: the disk is full"};
        case SQLITE_READONLY:
            return {DatabaseReadOnly,
                    file + " can't be written: the file, its folder or its disk is read-only"};
        case SQLITE_CORRUPT:
            return {DatabaseDamaged,
                    file + " is damaged (" + message +
                        "); put a copy in its place, or move it away: a new one is then made"};
        case SQLITE_NOTADB:
            return {DatabaseForeign, file + " is not a material database"};
        case SQLITE_CONSTRAINT:
            return {DatabaseRefused,
                    code == SQLITE_CONSTRAINT_UNIQUE ? "the name is there already" : NameOfCheck(message)};
        case SQLITE_CANTOPEN:
            return {DatabaseNotOpened, file + " can't be opened: " + SystemReason(systemError, message)};
        default:
            return {DatabaseDiskFailed, file + " can't be used: " + SystemReason(systemError, message)};
    }
}

}  // namespace

void Connection::Closer::operator()(sqlite3* handle) const {
    sqlite3_close_v2(handle);
}

Connection::Connection(const CString& path, const std::string& nameOrUri, int flags) : m_path(path) {
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(nameOrUri.c_str(), &handle, flags, nullptr);
    m_handle.reset(handle);
    if (code != SQLITE_OK) ThrowLastError();
    sqlite3_extended_result_codes(handle, 1);
}

void Connection::Execute(const std::string& sql) const {
    if (sqlite3_exec(Get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) ThrowLastError();
}

void Connection::ThrowLastError() const {
    throw MakeError(m_path, sqlite3_extended_errcode(Get()), sqlite3_system_errno(Get()),
                    sqlite3_errmsg(Get()));
}

void Statement::Finalizer::operator()(sqlite3_stmt* handle) const {
    sqlite3_finalize(handle);
}

Statement::Statement(const Connection& connection, std::string_view sql) : m_connection(connection) {
    sqlite3_stmt* handle = nullptr;
    Check(sqlite3_prepare_v2(connection.Get(), sql.data(), static_cast<int>(sql.size()), &handle, nullptr));
    m_handle.reset(handle);
}

bool Statement::Step() {
    const int code = sqlite3_step(m_handle.get());
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) {
        // The reset keeps the error, and ends the statement, so that the transaction can end.
        sqlite3_reset(m_handle.get());
        m_connection.ThrowLastError();
    }
    sqlite3_reset(m_handle.get());
    return false;
}

std::int64_t Statement::Run() {
    while (Step()) continue;
    return sqlite3_changes64(m_connection.Get());
}

std::int64_t Statement::Integer(int column) const {
    return sqlite3_column_int64(m_handle.get(), column);
}

std::optional<double> Statement::Real(int column) const {
    if (sqlite3_column_type(m_handle.get(), column) == SQLITE_NULL) return std::nullopt;
    return sqlite3_column_double(m_handle.get(), column);
}

CString Statement::Text(int column) const {
    const void* text = sqlite3_column_text16(m_handle.get(), column);
    const int bytes = sqlite3_column_bytes16(m_handle.get(), column);
    return CString(static_cast<const wchar_t*>(text), bytes / static_cast<int>(sizeof(wchar_t)));
}

std::string_view Statement::Utf8(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_handle.get(), column));
    const int bytes = sqlite3_column_bytes(m_handle.get(), column);
    return text ? std::string_view(text, static_cast<std::size_t>(bytes)) : std::string_view();
}

void Statement::BindValue(int parameter, std::int64_t value) {
    Check(sqlite3_bind_int64(m_handle.get(), parameter, value));
}

void Statement::BindValue(int parameter, std::optional<double> value) {
    Check(value ? sqlite3_bind_double(m_handle.get(), parameter, *value)
                : sqlite3_bind_null(m_handle.get(), parameter));
}

void Statement::BindValue(int parameter, std::string_view value) {
    Check(sqlite3_bind_text(m_handle.get(), parameter, value.data(), static_cast<int>(value.size()),
                            SQLITE_STATIC));
}

void Statement::BindValue(int parameter, const CString& value) {
    const int bytes = value.GetLength() * static_cast<int>(sizeof(wchar_t));
    Check(sqlite3_bind_text16(m_handle.get(), parameter, value.GetString(), bytes, SQLITE_STATIC));
}

void Statement::Check(int code) const {
    if (code != SQLITE_OK) m_connection.ThrowLastError();
}

Transaction::Transaction(const Connection& connection, Kind kind) : m_connection(&connection) {
    connection.Execute(kind == Kind::Writing ? "BEGIN IMMEDIATE" : "BEGIN");
}

Transaction::~Transaction() {
    // SQLite has ended the transaction itself after some failures; then there is nothing to undo.
    if (m_connection) sqlite3_exec(m_connection->Get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
    m_connection->Execute("COMMIT");
    m_connection = nullptr;
}
