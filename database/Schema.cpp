#include "Schema.h"

#include "DatabaseError.h"
#include "Text.h"

#include <iterator>

namespace {

constexpr std::int64_t kApplicationId = 0x4D46584D;  // "MFXM"

// A check of a column. Its name says what is wrong when it fails, and reaches the user.
std::string Check(const std::string& flaw, const std::string& condition) {
    return " CONSTRAINT \"" + flaw + "\" CHECK(" + condition + ")";
}

std::string NameChecks(const std::string& column, const std::string& what) {
    const std::string subject = "the name of the " + what;
    return Check("the " + what + " has no name", column + " <> ''") +
           Check(subject + " has blanks at its ends", column + " = trim(" + column + ")") +
           Check(subject + " has a line break or another control character",
                 column + " NOT GLOB '*[' || char(1) || '-' || char(31) || ']*'") +
           Check(subject + " has more than 260 characters", "length(" + column + ") <= 260");
}

// Look-ups separate the names of groups by ";".
std::string GroupChecks() {
    return NameChecks("name", "group") +
           Check("the name of the group has a semicolon", "instr(name, ';') = 0");
}

// Unit codes are those of MFXUnitConvertor.h.
std::string FigureColumns() {
    return "density REAL" + Check("the density is not above 0", "density > 0") +
           ", density_unit INTEGER NOT NULL" +
           Check("the unit of the density is not known", "density_unit BETWEEN 1 AND 5") +
           ", minimum_wall REAL" + Check("the minimum wall thickness is negative", "minimum_wall >= 0") +
           ", maximum_wall REAL" + Check("the maximum wall thickness is negative", "maximum_wall >= 0") +
           Check("the minimum wall thickness is above the maximum", "minimum_wall <= maximum_wall") +
           ", wall_unit INTEGER NOT NULL" +
           Check("the unit of the wall thickness is not known", "wall_unit BETWEEN 1 AND 10");
}

std::string MakeVersion1() {
    return R"(
        CREATE TABLE process(
            id INTEGER PRIMARY KEY,
            name TEXT NOT NULL COLLATE NOCASE UNIQUE)" +
           NameChecks("name", "process") + R"() STRICT;
        CREATE TABLE material_group(
            id INTEGER PRIMARY KEY,
            process_id INTEGER NOT NULL REFERENCES process(id) ON DELETE CASCADE,
            name TEXT NOT NULL COLLATE NOCASE)" +
           GroupChecks() + R"(,
            UNIQUE(process_id, name)) STRICT;
        CREATE TABLE material(
            id INTEGER PRIMARY KEY,
            group_id INTEGER NOT NULL REFERENCES material_group(id) ON DELETE CASCADE,
            name TEXT NOT NULL COLLATE NOCASE)" +
           NameChecks("name", "material") + "," + FigureColumns() + R"(,
            UNIQUE(group_id, name)) STRICT)";
}

// Groups are looked up by the family that they belong to; NULL: by their own name.
std::string MakeVersion2() {
    return "ALTER TABLE material_group ADD COLUMN family TEXT COLLATE NOCASE" +
           NameChecks("family", "family") +
           "; UPDATE material_group SET family = 'Cast Iron' WHERE name = 'Iron'";
}

// Each leads from the version before to its own. Those released never change.
constexpr std::string (*kSteps[])() = {MakeVersion1, MakeVersion2};

std::string MakeImportTablesSql() {
    return R"(
        DROP TABLE IF EXISTS temp.import_group;
        DROP TABLE IF EXISTS temp.import_material;
        CREATE TEMP TABLE import_group(
            id INTEGER PRIMARY KEY,
            process TEXT NOT NULL COLLATE NOCASE)" +
           NameChecks("process", "process") + R"(,
            name TEXT NOT NULL COLLATE NOCASE)" +
           GroupChecks() + R"(,
            family TEXT COLLATE NOCASE)" +
           NameChecks("family", "family") + R"(,
            target_id INTEGER,  -- the group in the database, once it is there
            UNIQUE(process, name)) STRICT;
        CREATE TEMP TABLE import_material(
            line INTEGER PRIMARY KEY,
            group_id INTEGER NOT NULL,  -- of import_group
            name TEXT NOT NULL COLLATE NOCASE)" +
           NameChecks("name", "material") + "," + FigureColumns() + ") STRICT";
}

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
    const bool hasTables =
        ReadNumber(connection, "SELECT count(*) FROM sqlite_schema WHERE name = 'material'") > 0;
    if (version < 1 || !hasTables)
        throw DatabaseError(DatabaseDamaged, file + " is damaged (its version or its tables are missing)");
    return version < newest ? SchemaState::Older : SchemaState::Current;
}

void UpdateSchema(const Connection& connection) {
    for (std::int64_t version = ReadVersion(connection); version < std::ssize(kSteps); ++version)
        connection.Execute(kSteps[version]());
    connection.Execute("PRAGMA application_id = " + std::to_string(kApplicationId));
    connection.Execute("PRAGMA user_version = " + std::to_string(std::ssize(kSteps)));
}

void MakeImportTables(const Connection& connection) {
    connection.Execute(MakeImportTablesSql());
}
