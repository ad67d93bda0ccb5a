#pragma once

#include "DatabaseFile.h"
#include "IMaterialDatabase.h"

#include "host/HostTest.h"

inline constexpr char kHeadings[] =
    "Process,Family,Group,Material,Density [g/cm3],Minimum wall thickness [mm],Maximum wall thickness [mm]\n";
inline constexpr int kDefaultMaterials = 43;

// Lines of materials of the group "G" with their numbers as names.
inline std::string ManyLines(int first, int count) {
    std::string lines;
    for (int i = first; i < first + count; ++i)
        lines += "Sand Casting,,G,Material " + std::to_string(i) + ",7.2,3,5\n";
    return lines;
}

// Starts the real program with a database in the test's own folder.
class MaterialsTest : public HostTest {
  protected:
    MaterialsTest() { SetEnvironmentVariableW(kDatabaseVariable, Database().c_str()); }

    std::wstring Database() const { return m_folder.Path(L"m.db"); }

    // Number of materials in the database, which SQLite finds whole.
    std::int64_t CountWhole() const {
        const DatabaseFile file = OpenDatabase(Database().c_str());
        for (const char* check : {"PRAGMA integrity_check", "PRAGMA foreign_key_check"}) {
            Statement statement(*file.connection, check);
            while (statement.Step()) EXPECT_EQ(statement.Utf8(0), "ok");
        }
        Statement count(*file.connection, "SELECT count(*) FROM material");
        count.Step();
        return count.Integer(0);
    }
};
