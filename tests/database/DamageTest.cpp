#include "MaterialsTest.h"

#include <filesystem>

namespace fs = std::filesystem;
using namespace testing;

namespace {

struct DamageTest : MaterialsTest {
    DamageTest() { m_folder.Write(L"a.csv", kHeadings + ManyLines(0, 10'000)); }

    // Neither printing nor importing works; the file stays as it was.
    void ExpectRefused(int exitCode, const std::string& reason) const {
        SCOPED_TRACE(reason);
        const std::string before = m_folder.Read(L"m.db");
        Run({L"materials", L"list"}, exitCode, "", HasSubstr(reason));
        Run({L"materials", L"import", L"a.csv"}, exitCode, "", HasSubstr(reason));
        EXPECT_TRUE(m_folder.Read(L"m.db") == before);
    }

    // Makes the database, then changes it.
    void MakeDatabase(const char* sql) const {
        fs::remove(Database());
        OpenDatabase(Database().c_str()).connection->Execute(sql);
    }

    std::size_t FindRootPage(const char* table) const {
        const DatabaseFile file = OpenDatabase(Database().c_str());
        Statement statement(*file.connection, "SELECT rootpage FROM sqlite_schema WHERE name = ?");
        statement.Bind(std::string_view(table)).Step();
        return static_cast<std::size_t>(statement.Integer(0));
    }
};

}  // namespace

TEST_F(DamageTest, RefusesFilesThatAreNoDatabaseOfToday) {
    m_folder.Write(L"m.db", std::string(5'000, 'x'));
    ExpectRefused(3, "m.db is not a material database");
    MakeDatabase("PRAGMA application_id = 1");
    ExpectRefused(3, "m.db is the database of another application");
    MakeDatabase("PRAGMA user_version = 1000");
    ExpectRefused(3, "m.db was written by a newer version");
    for (const char* sql : {"PRAGMA user_version = -3", "DROP TABLE material"}) {
        MakeDatabase(sql);
        ExpectRefused(3, "m.db is damaged (its version or its tables are missing)");
    }
    // The pages of a table: the materials are told to be damaged, not to be none.
    for (const char* table : {"process", "material_group", "material"}) {
        MakeDatabase("VACUUM");
        const std::size_t page = FindRootPage(table), pageSize = 4'096;
        std::string bytes = m_folder.Read(L"m.db");
        m_folder.Write(L"m.db", bytes.replace((page - 1) * pageSize, pageSize, pageSize, '\xA5'));
        ExpectRefused(3, "m.db is damaged (database disk image is malformed)");
    }
    fs::remove(Database());
    fs::create_directory(Database());
    Run({L"materials", L"list"}, 4, "", HasSubstr("m.db can't be opened: "));
    Run({L"materials", L"list", L"--database", L"none\\m.db"}, 4, "", HasSubstr("m.db can't be opened: "));
}

TEST_F(DamageTest, BringsAnOlderFileUpToDate) {
    fs::copy_file(MFX_OLDER_DATABASE, Database());
    SetFileAttributesW(Database().c_str(), FILE_ATTRIBUTE_READONLY);
    ExpectRefused(4, "m.db is from an older version, and read-only");
    SetFileAttributesW(Database().c_str(), FILE_ATTRIBUTE_NORMAL);
    Run({L"materials", L"export"}, 0,
        AllOf(HasSubstr("\r\nSand Casting,Cast Iron,Iron,EN-GJS-400-15 \xE9\x8B\xB3\xE9\x89\x84,7.1,4,\r\n"),
              HasSubstr("\r\nSand Casting,,Steel,,,,\r\n")),
        "");
    EXPECT_EQ(CountWhole(), 2);
}

TEST_F(DamageTest, ReadsAFileThatIsReadOnly) {
    MakeDatabase("VACUUM");
    SetFileAttributesW(Database().c_str(), FILE_ATTRIBUTE_READONLY);
    Run({L"materials", L"find", L"magnesium"}, 0, HasSubstr("Magnesium"), "");
    Run({L"materials", L"import", L"a.csv"}, 4, "", HasSubstr("m.db is read-only"));
    Run({L"materials", L"import", L"a.csv", L"--dry-run"}, 0, HasSubstr("10000 materials would be added"),
        "");
}

TEST_F(DamageTest, ReadsOnADiskThatCanNotBeWritten) {
    if (!fs::exists(MFX_DISKS "fixed/m.db")) GTEST_SKIP() << "no file system could be mounted";
    const std::wstring path = Wide(MFX_DISKS "fixed/m.db");
    Run({L"materials", L"find", L"magnesium", L"--database", path}, 0, HasSubstr("Magnesium"), "");
    Run({L"materials", L"import", L"a.csv", L"--database", path}, 4, "",
        HasSubstr("m.db: its folder or its disk can't be written"));
    Run({L"materials", L"list", L"--database", Wide(MFX_DISKS "fixed/new.db")}, 4, "",
        HasSubstr("new.db can't be opened: "));
}

TEST_F(DamageTest, LeavesTheFileWholeOnAFullDisk) {
    if (!fs::exists(MFX_DISKS "small/m.db")) GTEST_SKIP() << "no file system could be mounted";
    const std::wstring path = Wide(MFX_DISKS "small/m.db");
    Run({L"materials", L"import", L"a.csv", L"--database", path}, 4, "",
        HasSubstr("m.db can't be written: the disk is full"));
    fs::copy_file(path, Database());
    EXPECT_EQ(CountWhole(), kDefaultMaterials);
}
