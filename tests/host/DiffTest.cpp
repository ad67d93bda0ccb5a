#include "HostTest.h"

using namespace testing;

TEST_F(HostTest, ComparesDocumentsInTheUnitsOfTheFirst) {
    const std::string all = m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"));
    m_folder.Write(L"a.xml", all);
    Run({L"convert", L"a.xml", L"--length", L"ft", L"--angle", L"rad", L"-o", L"b.xml"}, 0, _, _);
    Run({L"diff", L"a.xml", L"b.xml"}, 0, "", "");
    Run({L"diff", L"b.xml", L"a.xml"}, 0, "", "");

    // One more band, another limit, another mass unit, and a material and a rule that the first one does not
    // have.
    std::string other = Replaced(all, "<Value>4.76</Value>", "<Value>5</Value>");
    other = Replaced(other, "<Value>kg</Value>", "<Value>t</Value>");
    other = Replaced(other, "Value=\"Gray Cast Iron\"", "Value=\"Grau &amp; Guß\"");
    other = Replaced(other, "Attribute2=\"203\"", "Attribute2=\"1000000000.0\"");
    m_folder.Write(L"c.xml",
                   Replaced(other, "Name=\"Wall Thickness Variation\"", "Name=\"Variable Draft Angle\""));
    const ProcessResult run = Run({L"diff", L"a.xml", L"c.xml"});
    for (const char* line :
         {"Steel: Minimum wall thickness +4.76 mm +5 mm\n", "Mass unit +kg +t\n",
          "Gray Cast Iron: constraint +present +.none.\n", "Grau & Guß: constraint +.none. +present\n",
          "to, row 4 +203 mm +no limit\n", "Wall Thickness Variation +rule +present +.none.\n"})
        EXPECT_THAT(run.out, ContainsRegex(line));
    EXPECT_EQ(run.nExitCode, 1);
    Run({L"diff", L"c.xml", L"a.xml", L"--json"}, 1,
        ContainsRegex("unit.: \"mm\",\n *.left.: .no limit.,\n *.right.: 203.0"), _);
}

TEST_F(HostTest, FindsNoDifferenceFromItself) {
    const std::string all = m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"));
    // A rule of another module, a text that is no number; both are named for each side.
    const std::string others = m_folder.Read(Wide(MFX_SAMPLES "other-module.xml"));
    m_folder.Write(L"d.xml", Replaced(others, "<Value>30<", "<Value>x<"));
    m_folder.Write(L"e.xml", Replaced(others, "<Value>30<", "<Value>x<"));
    Run({L"diff", L"d.xml", L"e.xml"}, 0, "",
        AllOf(HasSubstr("d.xml:4: Minimum"), HasSubstr("e.xml:4: Minimum"), HasSubstr("\"x\" is not")));
    m_folder.Write(L"n.xml",
                   Replaced(all, "<PercentDeviation />",
                            "<PercentDeviation><Info><Value>nan</Value></Info></PercentDeviation>"));
    Run({L"diff", L"n.xml", L"n.xml"}, 0, "", HasSubstr("\"nan\" is not"));
    m_folder.Write(L"e.xml", Replaced(others, "<Value>30<", "<Value>y<"));
    Run({L"diff", L"d.xml", L"e.xml"}, 1, "", HasSubstr("e.xml:"));
    m_folder.Write(L"e.xml", Replaced(others, "<Value>2.5<", "<Value>2<"));
    Run({L"diff", L"e.xml", Wide(MFX_SAMPLES "other-module.xml")}, 1,
        ContainsRegex("Minimum Bend Radius +Parameter/Value +2 +2.5\n$"), _);
    // Marks of bands are numbers like any other elsewhere.
    m_folder.Write(L"d.xml",
                   Replaced(Replaced(all, "<Value>4.76<", "<Value>-1<"), "\"1.5\"", "\"1000000000\""));
    Run({L"diff", L"d.xml", Wide(MFX_SAMPLES "all-rules.xml")}, 1,
        AllOf(HasSubstr(" -1 mm"), HasSubstr(" 1000000000 deg")), "");
}

TEST_F(HostTest, ComparesWithDefaults) {
    m_folder.Write(L"d.xml", m_sample);
    Run({L"diff", L"--defaults", L"d.xml"}, 0, "", "");
    m_folder.Write(L"d.xml", Replaced(m_inches, "Severity=\"1\"", "Severity=\"2\""));
    Run({L"diff", L"d.xml", L"--defaults", L"--json"}, 1,
        AllOf(HasSubstr("\"version\": 3"), HasSubstr("\"left\": \"default\""), HasSubstr("\"unit\": \"in\""),
              HasSubstr("\"right\": \"no limit\""), Not(HasSubstr("severity"))),
        "");
    Run({L"diff", L"d.xml"}, 2, "", HasSubstr("--defaults"));
    Run({L"diff", L"d.xml", L"d.xml", L"--defaults"}, 2, "", HasSubstr("excludes"));
}
