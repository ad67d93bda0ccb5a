#include "HostTest.h"

using namespace testing;

namespace {

constexpr const wchar_t* kRules[] = {L"19010", L"19020", L"19030", L"19040"};

const std::string kMaterials = "material,active,minimum [mm],maximum [mm]\n\n";
const std::string kGroups =
    "group,active,size from [mm],size to [mm],weight from [kg],weight to [kg],minimum wall thickness [mm]\n";

// A table for a rule of all-rules.xml, and what is wrong with it and where.
struct BadTable {
    const wchar_t* rule;
    std::string table;
    const char* reason;
    int exitCode = 1;
};

}  // namespace

class TableTest : public HostTest {
  protected:
    TableTest() { m_folder.Write(L"a.xml", m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"))); }
};

// What a workbook has room for is in millimetres. The masses get another unit on the way and back.
TEST_F(TableTest, ImportsWhatItExports) {
    Run({L"set", L"a.xml", L"19020/Steel/29120/3=no limit", L"19040/29183/4/to=-"}, 0, _, "");
    m_folder.Write(L"mm.xml", m_folder.Read(L"a.xml"));
    Run({L"convert", L"a.xml", L"--length", L"in"}, 0, _, _);
    Run({L"set", L"a.xml", L"19020/10165=lb"}, 0, _, "");
    Run({L"new", L"mm-copy.xml"}, 0, _, "");
    Run({L"convert", L"mm-copy.xml", L"--length", L"in", L"-o", L"a-copy.xml"}, 0, _, _);
    for (const std::wstring rule : kRules) {
        Run({L"export", L"a.xml", L"--rule", rule, L"-o", rule + L".csv"}, 0, HasSubstr("line"), "");
        Run({L"import", L"a-copy.xml", rule + L".csv", L"--rule", rule}, 0, _, "");
        Run({L"export", L"mm.xml", L"--rule", rule, L"-o", rule + L".xlsx"}, 0, HasSubstr("line"), "");
        Run({L"import", L"mm-copy.xml", rule + L".xlsx", L"--rule", rule}, 0, _, "");
    }
    Run({L"set", L"a-copy.xml", L"19020/10165=lb"}, 0, _, "");
    Run({L"diff", L"a.xml", L"a-copy.xml"}, 0, "", "");
    Run({L"diff", L"mm.xml", L"mm-copy.xml"}, 0, "", "");
}

// A number that was not changed in a workbook keeps the digits that the workbook has no room for.
TEST_F(TableTest, MakesTheSameWorkbookTwice) {
    Run({L"convert", L"a.xml", L"--length", L"in"}, 0, _, _);
    Run({L"export", L"a.xml", L"--rule", L"19010", L"-o", L"in.xlsx"}, 0, _, "");
    Run({L"import", L"a.xml", L"in.xlsx", L"--rule", L"19010"}, 0, "a.xml: 0 differences from before\n", "");
    const std::string book = m_folder.Read(L"in.xlsx");
    Run({L"export", L"a.xml", L"--rule", L"19010", L"-o", L"IN.XLSX", L"--lang", L"french"}, 0, _, "");
    EXPECT_EQ(m_folder.Read(L"in.xlsx"), book);
}

TEST_F(TableTest, WritesStableHeadings) {
    Run({L"export", L"a.xml", L"--rule", L"19010", L"-o", L"-", L"--lang", L"japanese"}, 0,
        "material,active,minimum [mm],maximum [mm]\r\n"
        "Steel,yes,4.76,6.35\r\n"
        "Gray Cast Iron,no,3.18,4.76\r\n",
        "-: 2 lines\n");
    Run({L"export", L"a.xml", L"--rule", L"19020", L"-o", L"-"}, 0,
        StartsWith("group,active,size from [mm],size to [mm],weight from [kg],weight to [kg],"
                   "minimum wall thickness [mm]\r\nSteel,yes,0,200,-,-,5\r\n"),
        _);
    Run({L"export", L"a.xml", L"--rule", L"19040", L"-o", L"a.txt"}, 2, "", HasSubstr(".csv or .xlsx"));
    Run({L"export", L"a.xml", L"--rule", L"19050", L"-o", L"-"}, 2, "",
        HasSubstr("its rules are 19010, 19020"));
    m_folder.Write(L"a.xml", Replaced(m_folder.Read(L"a.xml"), "\"Gray Cast Iron\"", "\"Steel\""));
    Run({L"export", L"a.xml", L"--rule", L"19010", L"-o", L"a.csv"}, 1, "", HasSubstr("the name \"Steel\""));
}

// The table is the whole list, in its order and in its units.
TEST_F(TableTest, ReplacesTheTable) {
    m_folder.Write(L"a.csv",
                   "MAXIMUM [in],material,minimum [cm],active,\n0.5,Bronze,0.3,Yes,\n6mm,Steel ,.5,no,\n");
    Run({L"import", L"a.xml", L"a.csv", L"--rule", L"19010", L"--dry-run"}, 0,
        AllOf(ContainsRegex("Bronze: constraint +\\(none\\) +present"),
              ContainsRegex("Gray Cast Iron: constraint +present +\\(none\\)"),
              ContainsRegex("Steel: Minimum wall thickness +4.76 mm +5 mm")),
        "");
    Run({L"import", L"a.xml", L"a.csv", L"--rule", L"19010"}, 0, _, "");
    Run({L"export", L"a.xml", L"--rule", L"19010", L"-o", L"-"}, 0,
        EndsWith("\r\nBronze,yes,3,12.7\r\nSteel,no,5,6\r\n"), _);
    m_folder.Write(L"b.xlsx", m_folder.Read(Wide(MFX_SAMPLES "draft-angles.xlsx")));
    Run({L"import", L"a.xml", L"b.xlsx", L"--rule", L"19040"}, 0, _, "");
    Run({L"show", L"a.xml"}, 0, ContainsRegex("101.6 +203.2 +0.75 +1.0 +1.0\n"), "");
}

TEST_F(TableTest, NamesThePlaceOfAFault) {
    const BadTable kBadTables[] = {
        {L"19010", "material,active,min,maximum\n", "t.csv:1: \"min\" is not a heading; the headings are"},
        {L"19010", "material,active,minimum [kg],maximum\n", "has an unknown unit; its units are mm"},
        {L"19010", "material [mm],active,minimum,maximum\n", "t.csv:1: \"material [mm]\" has no unit"},
        {L"19010", "material,active,minimum,minimum\n", "stands there twice"},
        {L"19010", "material,active,minimum\n", "t.csv:1: the heading maximum is missing"},
        {L"19010", "material;active;minimum;maximum\n", "separated by semicolons", 3},
        {L"19010", kMaterials + "Steel,yes,5\n", "t.csv:3: 3 fields instead of 4", 3},
        {L"19010", kMaterials + "Steel,maybe,5,6\n", "t.csv:3: active: \"maybe\" is not yes or no"},
        {L"19010", kMaterials + "Steel,yes,\"5,1\",6\n", "t.csv:3: minimum [mm]: \"5,1\""},
        {L"19010", kMaterials + "Steel,yes,5,6\nSteel,yes,5,6\n", "t.csv:4: material: Row 4"},
        {L"19010", kMaterials + "Steel,yes,7,6\n", "t.csv:3: maximum [mm]: Row 3"},
        {L"19010", kMaterials + ",yes,5,6\n", "t.csv:3: material: there is no name"},
        {L"19010", kMaterials + "\"a\nb\",yes,5,6\n", "t.csv:3: material: a name has no control characters"},
        {L"19020", kGroups + "Steel,yes,0,200,-,-,5\nIron,no,0,9,,,3\nSteel,yes,300,400,-,-,6\n",
         "t.csv:4: size from [mm]: Steel: "},
        {L"19020", kGroups + "Steel,yes,no limit,200,-,-,5\n", "only an upper size may have no limit"},
        {L"19020", kGroups + "Steel,yes,0,200,-,-,5\nSteel,no,200,300,-,-,5\n",
         "t.csv:3: active: the first line"},
        {L"19020", kGroups + "Steel,yes,-,-,-,-,-\n", "t.csv:2: size from [mm]: Steel: "},
        {L"19030", "largest variation\n25\n30\n", "t.csv:3: the table has one value"},
        {L"19030", "largest variation\n0\n", "t.csv:2: largest variation: "},
        {L"19040", "H1,H2,A1,A2\n", "t.csv: "},
        {L"19040", "H1,H2,A1,A2,A3\n\n0,x,1,1,1\n", "B3"},
        {L"19040", "H1,H2,A1,A2,A3\n\n0,5,1,1,1\n6,9,1,1,1\n", "H1 must be 5.0"},
    };
    const std::string before = m_folder.Read(L"a.xml");
    for (const auto& [rule, table, reason, exitCode] : kBadTables) {
        m_folder.Write(L"t.csv", table);
        Run({L"import", L"a.xml", L"t.csv", L"--rule", rule}, exitCode, "", HasSubstr(reason));
    }
    Run({L"export", L"a.xml", L"--rule", L"19010", L"-o", L"t.xlsx"}, 0, _, "");
    Run({L"import", L"a.xml", L"t.xlsx", L"--rule", L"19020"}, 1, "", HasSubstr("t.xlsx: A1: \"material\""));
    Run({L"import", L"a.xml", L"none.csv", L"--rule", L"19020"}, 3, "", HasSubstr("none.csv: can't be read"));
    EXPECT_EQ(m_folder.Read(L"a.xml"), before);
}
