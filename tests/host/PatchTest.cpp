#include "HostTest.h"

using namespace testing;

namespace {

class HostPatchTest : public HostTest {
  protected:
    HostPatchTest() {
        m_folder.Write(L"a.xml", m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml")));
        Run({L"set", L"a.xml", L"19010/10067=5", L"19040/29183/1=none", L"-o", L"b.xml"}, 0, _, "");
        m_folder.Write(L"p.json", Run({L"diff", L"a.xml", L"b.xml", L"--json"}).out);
    }
};

}  // namespace

TEST_F(HostPatchTest, PrintsOneLinePerDifference) {
    Run({L"diff", L"a.xml", L"b.xml"}, 1,
        ContainsRegex(
            "\nUniform Wall .*\nVariable Draft Angle +band 0 to 25.4 mm, row 1 +present +.none.\n$"),
        "");
}

TEST_F(HostPatchTest, AppliesPatches) {
    Run({L"apply", L"a.xml", L"p.json", L"--dry-run"}, 0, ContainsRegex("5 mm\n.*band 0 to"), "");
    Run({L"set", L"a.xml", L"19010/10067=4", L"-o", L"c.xml"}, 0, _, "");
    const std::string before = m_folder.Read(L"c.xml");
    Run({L"apply", L"c.xml", L"p.json"}, 1, "",
        HasSubstr("conflict: 19010/10067: expected 6 mm, found 4 mm, wanted 5 mm\n"));
    EXPECT_EQ(m_folder.Read(L"c.xml"), before);
    Run({L"apply", L"c.xml", L"p.json", L"--take", L"file", L"-o", L"d.xml"}, 0,
        "d.xml: 1 difference from before\n", HasSubstr("conflict"));
    Run({L"apply", L"c.xml", L"p.json", L"--take", L"patch"}, 0, _, _);
    Run({L"diff", L"c.xml", L"b.xml"}, 0, "", "");
    Run({L"apply", L"c.xml", L"p.json", L"--take", L"mine"}, 2, "", HasSubstr("--take"));
    Run({L"apply", Wide(MFX_SAMPLES "other-module.xml"), L"p.json"}, 1, "", HasSubstr("of another document"));
}

TEST_F(HostPatchTest, RefusesBadPatches) {
    const std::string patch = m_folder.Read(L"p.json"), before = m_folder.Read(L"a.xml");
    const struct {
        const char *part, *by;
        int exitCode;
        const char* message;
    } kCases[] = {
        {"{", "[", 3, "p.json: is no patch: parse error at line"},
        {"\"version\": 3", "\"version\": 2", 3, "p.json: version 2 can't be read, only 3"},
        {"\"left\": \"a.xml\"", "\"from\": \"a.xml\"", 3, "\"left\" is missing"},
        {"\"after\": null", "\"after\": null, \"note\": 1", 3, "differences[0]: \"note\" is not known"},
        {"\"kind\": \"value\"", "\"kind\": \"cell\"", 3, "differences[0].kind: \"cell\""},
        {"\"row\": 1", "\"row\": 9", 3, "tables: there is no row"},
        {"\"right\": 5.0", "\"right\": \"5 mm\"", 1, "\"5 mm\" is not a number"},
        {"\"right\": 5.0", "\"right\": 1e999", 3, "p.json: is no patch"},
        {"\"right\": 5.0", "\"right\": 50", 1, "The maximum is below the minimum."},
        {"\"unit\": \"mm\",\n      \"left\": 6.0", "\"unit\": \"kg\",\n      \"left\": 6.0", 1,
         "\"kg\" instead of \"mm\""},
        {"\"records\": []",
         "\"records\": [{\"key\": \"19010#2\", \"left\": null, \"right\": \"<Rule Name=\\\"Uniform Wall "
         "Thickness\\\" Module=\\\"MFXSandCastingRulesValidator\\\"/>\"}]",
         1, "the record is of a rule that has values"},
        {"19010/10067\"", "19010/1067\"", 1, "there is no such value; the nearest keys are 19010/10067,"},
    };
    for (const auto& [part, by, exitCode, message] : kCases) {
        m_folder.Write(L"p.json", Replaced(patch, part, by));
        Run({L"apply", L"a.xml", L"p.json"}, exitCode, "", HasSubstr(message));
    }
    EXPECT_EQ(m_folder.Read(L"a.xml"), before);
}

TEST_F(HostPatchTest, MergesInPlace) {
    const std::string base = m_folder.Read(L"a.xml"), theirs = m_folder.Read(L"b.xml");
    m_folder.Write(L".merge_file_b", base);
    m_folder.Write(L".merge_file_t", theirs);
    m_folder.Write(L".merge_file_m", Replaced(base, "<Value>16<", "<Value>17<"));
    const Arguments merge = {L"merge", L".merge_file_b", L".merge_file_m", L".merge_file_t",
                             L"-o",    L".merge_file_m"};
    Run(merge, 0, ".merge_file_m: 2 differences from .merge_file_m\n", "");
    m_folder.Write(L".merge_file_t", Replaced(base, "<Value>6<", "<Value>7<"));
    const std::string mine = m_folder.Read(L".merge_file_m");
    Run(merge, 1, "", HasSubstr("conflict: 19010/10067: base 6 mm, mine 5 mm, theirs 7 mm\n"));
    EXPECT_EQ(m_folder.Read(L".merge_file_m"), mine);
}

// The first material decides which limits are in force.
TEST_F(HostPatchTest, SeesTheOrderOfMaterials) {
    Run({L"set", L"a.xml", L"19010/by-material=no", L"-o", L"b.xml"}, 0, _, "");
    Run({L"diff", L"a.xml", L"b.xml"}, 1, ContainsRegex("limits by material in force +yes +no\n"), "");
    m_folder.Write(L"p.json", Run({L"diff", L"a.xml", L"b.xml", L"--json"}).out);
    Run({L"apply", L"a.xml", L"p.json"}, 0, _, "");
    Run({L"limits", L"a.xml", L"--material", L"Steel"}, 0, HasSubstr("6 mm  19010/10067\n"), "");
}

TEST_F(HostPatchTest, MergesWhatIsNotCompared) {
    const std::string base = m_folder.Read(L"a.xml");
    m_folder.Write(L"t.xml", Replaced(base, "<Remarks />", "<Remarks>by the foundry</Remarks>"));
    Run({L"merge", L"a.xml", L"a.xml", L"t.xml", L"-o", L"m.xml"}, 0, _, "");
    EXPECT_THAT(m_folder.Read(L"m.xml"), HasSubstr("by the foundry"));
}
