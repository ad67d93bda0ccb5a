#pragma once

#include "DatabaseError.h"
#include "Sqlite.h"

#include <memory>

// How long an operation waits for another program that keeps the file locked. Dialogs stand still meanwhile,
// so reading does not wait long.
inline constexpr int kLongestWaitToReadMs = 500, kLongestWaitToWriteMs = 5'000;
void WaitForOthers(const Connection& connection, int longestMs);

// The file to use when none is given: that of the environment variable kDatabaseVariable, or
// MfxKit\materials.db in the user's application-data folder. Throws DatabaseError where the variable's path
// is not full: each folder would get a database of its own.
CString FindDatabasePath();

// The database, open, with the schema of today.
struct DatabaseFile {
    std::unique_ptr<Connection> connection;
    std::string writeProblem;  // why it can't be changed; empty: it can
};

// Opens the file; makes it with the default materials when it is not there, and its folder. Throws
// DatabaseError.
DatabaseFile OpenDatabase(const CString& path);
