#include "Schema.h"

#include "DatabaseError.h"
#include "Text.h"

#include <iterator>

// A check is named by what is wrong; the name reaches the user.
#define NAME_CHECKS(name, what)                             \
    " CONSTRAINT \"the " what " has no name\" CHECK(" name  \
    " <> '')"                                               \
    " CONSTRAINT \"the name of the " what                   \
    " has blanks at its ends\""                             \
    "  CHECK(" name " = trim(" name                         \
    "))"                                                    \
    " CONSTRAINT \"the name of the " what                   \
    " has a line break or another control character\""      \
    "  CHECK(" name                                         \
    " NOT GLOB '*[' || char(1) || '-' || char(31) || ']*')" \
    " CONSTRAINT \"the name of the " what                   \
    " has more than 260 characters\""                       \
    "  CHECK(length(" name ") <= 260)"

// Look-ups separate the names of groups by ";".
#define GROUP_CHECKS             \
    NAME_CHECKS("name", "group") \
    " CONSTRAINT \"the name of the group has a semicolon\" CHECK(instr(name, ';') = 0)"

#define FIGURES                                                                           \
    "  density REAL"                                                                      \
    "    CONSTRAINT \"the density is not above 0\" CHECK(density > 0),"                   \
    "  density_unit INTEGER NOT NULL CHECK(density_unit BETWEEN 1 AND 5),"                \
    "  minimum_wall REAL"                                                                 \
    "    CONSTRAINT \"the minimum wall thickness is negative\" CHECK(minimum_wall >= 0)," \
    "  maximum_wall REAL"                                                                 \
    "    CONSTRAINT \"the maximum wall thickness is negative\" CHECK(maximum_wall >= 0)"  \
    "    CONSTRAINT \"the minimum wall thickness is above the maximum\""                  \
    "      CHECK(minimum_wall <= maximum_wall),"                                          \
    "  wall_unit INTEGER NOT NULL CHECK(wall_unit BETWEEN 1 AND 10)"

namespace {

constexpr std::int64_t kApplicationId = 0x4D46584D;  // "MFXM"

// Each step leads from one version to the next; released ones never change. Unit codes are those of
// MFXUnitConvertor.h.
constexpr const char* kSteps[] = {
    // Version 1
    "CREATE TABLE process("
    "  id INTEGER PRIMARY KEY,"
    "  name TEXT NOT NULL COLLATE NOCASE UNIQUE" NAME_CHECKS("name", "process") ") STRICT;"
    "CREATE TABLE material_group("
    "  id INTEGER PRIMARY KEY,"
    "  process_id INTEGER NOT NULL REFERENCES process(id) ON DELETE CASCADE,"
    "  name TEXT NOT NULL COLLATE NOCASE" GROUP_CHECKS ","
    "  UNIQUE(process_id, name)) STRICT;"
    "CREATE TABLE material("
    "  id INTEGER PRIMARY KEY,"
    "  group_id INTEGER NOT NULL REFERENCES material_group(id) ON DELETE CASCADE,"
    "  name TEXT NOT NULL COLLATE NOCASE" NAME_CHECKS("name", "material") ","
    FIGURES ","
    "  UNIQUE(group_id, name)) STRICT;",
    // Version 2: groups are looked up by the family that they belong to; NULL: by their own name
    "ALTER TABLE material_group ADD COLUMN family TEXT COLLATE NOCASE" NAME_CHECKS(
        "family", "family") ";"
    "UPDATE material_group SET family = 'Cast Iron' WHERE name = 'Iron';",
};

constexpr char kImportTables[] =
    "DROP TABLE IF EXISTS temp.import_group;"
    "DROP TABLE IF EXISTS temp.import_material;"
    "CREATE TEMP TABLE import_group("
    "  id INTEGER PRIMARY KEY,"
    "  process TEXT NOT NULL COLLATE NOCASE" NAME_CHECKS("process", "process") ","
    "  name TEXT NOT NULL COLLATE NOCASE" GROUP_CHECKS ","
    "  family TEXT COLLATE NOCASE" NAME_CHECKS("family", "family") ","
    "  target_id INTEGER,"  // the group in the database, once it is there
    "  UNIQUE(process, name)) STRICT;"
    "CREATE TEMP TABLE import_material("
    "  line INTEGER PRIMARY KEY,"
    "  group_id INTEGER NOT NULL,"  // of import_group
    "  name TEXT NOT NULL COLLATE NOCASE" NAME_CHECKS("name", "material") ","
    FIGURES ") STRICT;";

std::int64_t ReadNumber(const Connection& connection, std::string_view sql) {
    Statement statement(connection, sql);
    return statement.Step() ? statement.Integer(0) : 0;
}

std::int64_t ReadVersion(const Connection& connection) {
    return ReadNumber(connection, "PRAGMA user_version");
}

}  // namespace

SchemaState FindSchemaState(const Connection& connection) {
    const std::int64_t version = ReadVersion(connection), newest = std::ssize(kSteps);
    const std::int64_t applicationId = ReadNumber(connection, "PRAGMA application_id");
    const std::string file = ToUtf8(connection.GetPath());
    if (applicationId == 0 && version == 0 &&
        ReadNumber(connection, "SELECT count(*) FROM sqlite_schema") == 0)
        return SchemaState::Empty;
    if (applicationId != kApplicationId)
        throw DatabaseError(DatabaseForeign, file + " is the database of another application");
    if (version > newest)
        throw DatabaseError(DatabaseTooNew, file + " was written by a newer version; install that version");
    return version < newest ? SchemaState::Older : SchemaState::Current;
}

void UpdateSchema(const Connection& connection) {
    for (std::int64_t version = ReadVersion(connection); version < std::ssize(kSteps); ++version)
        connection.Execute(kSteps[version]);
    connection.Execute(("PRAGMA application_id = " + std::to_string(kApplicationId)).c_str());
    connection.Execute(("PRAGMA user_version = " + std::to_string(std::ssize(kSteps))).c_str());
}

void MakeImportTables(const Connection& connection) {
    connection.Execute(kImportTables);
}
