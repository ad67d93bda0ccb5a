#include "HostTest.h"

#include <filesystem>
#include <map>
#include <set>

using namespace testing;

struct SamplesTest : HostTest {
    SamplesTest() {
        for (const auto& entry : std::filesystem::directory_iterator(Wide(MFX_SAMPLES)))
            if (entry.path().extension() == ".xml")
                samples[entry.path().filename().string()] = m_folder.Read(entry.path().wstring());
    }

    std::map<std::string, std::string> samples;
    // What can't be converted without loss, and where it says so.
    const std::map<std::string, std::string> refused = {{"other-module.xml", ":22: "},
                                                        {"legacy-three-numbers.xml", ":5: "}};
};

TEST_F(SamplesTest, AreShown) {
    const std::map<std::string, const char*> expected = {
        {"legacy-material-table.xml",
         "by material\n.*\n.*\n.* yes +4 mm\n.* yes +12 mm\n.*\n"
         "  Aluminium +yes +3.18 +4.76\n  Steel +yes +4.76 +6.35\n  Gray"},
        {"legacy-switched-limits.xml", "ness: 0.25 in  \n.*\n.*\n.* yes +0.25 in\n.* no +0.75 in\n"},
        {"legacy-material-table-off.xml",
         "Minimum wall thickness: 4.0 mm .*\n.*\n.*\n.*\n.*\n.*\n  Aluminium +no "},
        {"size-and-weight-metres.xml",
         "lb\n.* from .m. .* from .lb. .*\n.*\n.*\n  Copper .* yes +- +- +0.1 +2 "},
        {"other-module.xml", ": 3 rules .*\n\nWall Thickness Variation .*\n.* at most 30.0\n"},
    };
    for (const auto& [name, text] : samples) {
        m_folder.Write(Wide(name), text);
        const bool bRefused = refused.contains(name);
        Run({L"show", Wide(name), L"--lang", L"english"}, bRefused,
            ContainsRegex(expected.contains(name) ? expected.at(name) : "^" + name),
            HasSubstr(bRefused ? refused.at(name) : ""));
        if (bRefused)
            Run({L"convert", Wide(name), L"--length", L"in"}, 1, "", HasSubstr("was not converted"));
        EXPECT_EQ(m_folder.Read(Wide(name)), text);
    }
    EXPECT_GE(samples.size(), 8u);
}

// What is written is compared as it stands, by the units that the document then names.
TEST_F(SamplesTest, AreConvertedThereAndBack) {
    for (const auto& [name, place] : refused) samples.erase(name);
    for (const auto& [name, text] : samples) {
        SCOPED_TRACE(name);
        m_folder.Write(L"a.xml", text);
        Run({L"convert", L"a.xml", L"--length", L"yd", L"--angle", L"rad", L"-o", L"b.xml"}, 0, _, _);
        Run({L"convert", L"b.xml", L"--length", L"mm", L"--angle", L"deg", L"-o", L"c.xml"}, 0, _, _);
        // The draft angle rule makes zeros of empty cells.
        const bool bEmpty = text.find("Attribute5=\"\"") != std::string::npos;
        Run({L"diff", L"a.xml", L"b.xml"}, bEmpty,
            ContainsRegex(bEmpty ? "\n.*angle 3, row 1 +- +0 deg\n$" : "^$"), "");
        Run({L"diff", L"b.xml", L"c.xml"}, 0, "", "");
        EXPECT_THAT(m_folder.Read(L"b.xml"), HasSubstr("Unit=\"9\" AngleUnit=\"1\""));
    }
}
