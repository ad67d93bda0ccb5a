#include "MaterialsTest.h"

#include <filesystem>

using namespace testing;

namespace {

// A line behind the headings, and what is wrong with it.
struct BadLine {
    const char* line;
    const char* flaw;
};

}  // namespace

TEST_F(MaterialsTest, PrintsTheDefaultMaterials) {
    Run({L"materials", L"find", L"IRON"}, 0,
        "process       group  material             density  minimum wall  maximum wall\n"
        "Sand Casting  Iron   Gray Cast Iron             -  0.1251969 in  0.1874016 in\n"
        "Sand Casting  Iron   Malleable Cast Iron        -  0.1251969 in  0.1874016 in\n",
        "");
    Run({L"materials", L"list", L"--database", L"other.db"}, 0,
        AllOf(HasSubstr("\nSand Casting        Other Metals              -  "),
              HasSubstr("\nInjection Moulding  Plastics                  Urea, cellulose-filled  ")),
        "");
    Run({L"materials", L"find", L"chocolate"}, 0, "", HasSubstr("no material like \"chocolate\""));
    // As of a server, two backslashes at the start stay two.
    Run({L"materials", L"list", L"--database", L"\\\\?\\" + m_folder.Path(L"other.db")}, 0, _, "");
    for (const wchar_t* path : {L"m.db", L"\\m.db", L"C:m.db"}) {
        SetEnvironmentVariableW(kDatabaseVariable, path);
        Run({L"materials", L"list"}, 4, "", HasSubstr("it has to be a full path"));
    }
    EXPECT_EQ(CountWhole(), kDefaultMaterials);
    EXPECT_THAT(m_folder.Names(), ElementsAre(L"m.db", L"other.db"));
}

// What is exported and imported again is the same, to the last digit.
TEST_F(MaterialsTest, ExportsWhatItImports) {
    const std::string lines =
        "Sand Casting,,Steel,Steel,7.85,,\r\n"
        "Sand Casting,Bronzes,\"Tin, \"\"hard\"\"\",\xC3\x84lt\xE9\x8B\xB3,8.7,0.1,1e-07\r\n"
        "New Process,,Empty,,,,\r\n";
    std::string file = kHeadings + lines;
    file = Replaced(Replaced(file, ",0.1,", ",1e-08,"), "Minimum", "\"minimum");
    m_folder.Write(L"a.csv", "\xEF\xBB\xBF" + Replaced(file, "thickness [mm]", "thickness [Millimetres]\""));
    Run({L"materials", L"import", L"a.csv"}, 0, "a.csv: 1 material added, 1 changed, 0 unchanged\n", "");
    Run({L"materials", L"import", L"a.csv"}, 0, "a.csv: 0 materials added, 0 changed, 2 unchanged\n", "");

    // The others' walls are in inches.
    Run({L"materials", L"export", L"--mark", L"--length", L"mm", L"-o", L"b.csv"}, 0, "b.csv: 48 lines\n",
        "");
    const std::string exported = m_folder.Read(L"b.csv");
    EXPECT_THAT(exported, StartsWith("\xEF\xBB\xBFProcess,Family,Group,Material,Density [g/cm3],"));
    EXPECT_THAT(exported, HasSubstr("\r\nSand Casting,Cast Iron,Iron,Gray Cast Iron,,3.18,4.76\r\n"));
    EXPECT_THAT(
        exported,
        HasSubstr(
            "\r\nSand Casting,Bronzes,\"Tin, \"\"hard\"\"\",\xC3\x84lt\xE9\x8B\xB3,8.7,1e-08,1e-07\r\n"));
    // Iron is of the family of cast irons, also after a line that names no family.
    m_folder.Write(L"c.csv", std::string(kHeadings) + "Sand Casting,,Iron,Grey,7.2,,\r\n");
    Run({L"materials", L"import", L"c.csv", L"--database", L"family.db"}, 0, _, "");
    Run({L"materials", L"export", L"--database", L"family.db"}, 0,
        HasSubstr("\nSand Casting,Cast Iron,Iron,Grey,"), "");
    EXPECT_THAT(exported, EndsWith("\r\nNew Process,,Empty,,,,\r\n"));
    Run({L"materials", L"import", L"b.csv", L"--database", L"copy.db"}, 0, _, "");
    Run({L"materials", L"export", L"--mark", L"--database", L"copy.db"}, 0, exported, "");
}

TEST_F(MaterialsTest, NamesEachBadLineAndWritesNone) {
    const BadLine kBadLines[] = {
        {"Sand Casting,,G,Lead,-11.3,,", "the density is not above 0"},
        {"Sand Casting,,G,Lead,,5,3", "the minimum wall thickness is above the maximum"},
        {"Sand Casting,,G,Lead,,-1,3", "the minimum wall thickness is negative"},
        {"Sand Casting,,G,Lead,,3 mm,",
         "Minimum wall thickness: \"3 mm\" is not a number with a decimal point"},
        {"Sand Casting,,G,Lead,1e999,,", "Density: \"1e999\" is not a number with a decimal point"},
        {"Sand Casting,,G,Lead,nan,,", "Density: \"nan\" is not a number with a decimal point"},
        {"Sand Casting,,G,GOOD,,,", "the material \"GOOD\" stands in line 2 already"},
        {"Sand Casting,Other,G,Lead,,,", "the group \"G\" has another family in a line above"},
        {"Sand Casting,,A;B,Lead,,,", "the name of the group has a semicolon"},
        {"Sand Casting,,,Lead,,,", "the group has no name"},
        {",,G,Lead,,,", "the process has no name"},
        {"Sand Casting,,G,,1,,", "the material has no name"},
        {"Sand Casting,,G,\"Le\nad\",,,",
         "the name of the material has a line break or another control character"},
        {"Sand Casting,,G,Lead", "4 fields instead of 7"},
        {"Sand Casting,,G,\"Lead\"x,,,", "a text goes on behind its closing quotation mark"},
        {"Sand Casting,,G,Le\"ad,,,", "a quotation mark stands in a text without them"},
        {"Sand Casting,,G,Le\xFF"
         "ad,,,",
         "a text is not UTF-8"},
        {"Sand Casting,,G,Lead,,,\rx", "a carriage return stands without a line feed"},
        {"Sand Casting,,G,\"Lead,,,", "a quotation mark is left open"},
    };
    const std::string good = "Sand Casting,,G,Good,,,\n\r\n\"Sand Casting\",,G,Better,,,\n";
    for (const auto& [line, flaw] : kBadLines) {
        SCOPED_TRACE(line);
        m_folder.Write(L"a.csv", kHeadings + good + line);
        Run({L"materials", L"import", L"a.csv"}, 1, "",
            "a.csv:5: " + std::string(flaw) + "\nmfxhost: a.csv has 1 bad line; nothing was written\n");
    }
    m_folder.Write(L"a.csv", kHeadings + good + kBadLines[0].line + "\n" + kBadLines[12].line + "\n\n" +
                                 kBadLines[1].line);
    Run({L"materials", L"import", L"a.csv", L"--dry-run"}, 1, "",
        AllOf(HasSubstr("a.csv:5: "), HasSubstr("a.csv:6: "), HasSubstr("a.csv:9: "),
              HasSubstr("3 bad lines")));
    m_folder.Write(L"a.csv", kHeadings + good);
    Run({L"materials", L"import", L"a.csv", L"--dry-run"}, 0,
        "a.csv: 2 materials would be added, 0 changed, 0 unchanged\n", "");
    EXPECT_EQ(CountWhole(), kDefaultMaterials);
}

TEST_F(MaterialsTest, RefusesFilesThatAreNoMaterials) {
    const std::string headings = kHeadings;
    const std::pair<std::string, const char*> kFiles[] = {
        {"", "a.csv is empty"},
        {Replaced(headings, "Density", "Colour"),
         "a.csv:1: \"Colour [g/cm3]\" is not a heading; the headings are"},
        {Replaced(headings, "Family", "Group"), "a.csv:1: \"Group\" stands there twice"},
        {Replaced(headings, "Family,", ""), "a.csv:1: Family is missing"},
        {Replaced(headings, "g/cm3", "furlong"),
         "\"Density [furlong]\" has an unknown unit; those known are kg/m3,"},
        {Replaced(headings, " [g/cm3]", ""), "\"Density\" has no unit in brackets"},
        {Replaced(headings, "Maximum wall thickness [mm]", "Maximum wall thickness [in]"), "different units"},
        {"Process;Family;Group\n", "separated by semicolons"},
        {headings + "A,,G,\"" + std::string(100'000, 'x'), "a.csv:2: the line is longer than 64 KB"},
    };
    for (const auto& [bytes, reason] : kFiles) {
        m_folder.Write(L"a.csv", bytes);
        Run({L"materials", L"import", L"a.csv"}, 3, "", HasSubstr(reason));
    }
    Run({L"materials", L"import", L"none.csv"}, 3, "", HasSubstr("none.csv: can't be read: "));
    Run({L"materials", L"export", L"--length", L"furlong"}, 2, "", HasSubstr("--length: \"furlong\""));
    Run({L"materials"}, 2, "", HasSubstr("mfxhost materials --help"));
    Run({L"materials", L"list", L"--database", L"."}, 3, "", HasSubstr("it is a folder"));
}
