#include "HostTest.h"

#include <regex>

using namespace testing;

// Other numbers, another unit of the document: everything that show lists makes it the same again.
TEST_F(HostTest, SetsEveryValueByItsKey) {
    const std::string all = m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"));
    m_folder.Write(L"a.xml", Replaced(all, "Gray Cast Iron", "19/3=#%"));
    m_folder.Write(L"b.xml", Replaced(m_folder.Read(L"a.xml"), "<Value>4.76<", "<Value>5<"));
    Run({L"convert", L"b.xml", L"--length", L"in", L"--angle", L"rad"}, 0, _, _);
    const std::string json = Run({L"show", L"a.xml", L"--json"}).out;
    const std::regex pattern(
        "\"key\": \"(.+)\",\n *\"label\": .*\n *\"unit\": (?:null|\"(.+)\"),\n *\"value\": \"?([^\"\n]+)");
    Arguments arguments = {L"set", L"b.xml"};
    for (std::sregex_iterator match(json.begin(), json.end(), pattern), end; match != end; ++match) {
        const std::string value = (*match)[3] == "null" ? "-" : (*match)[3].str();
        arguments.push_back(Wide((*match)[1].str() + "=" + value + (*match)[2].str()));
    }
    EXPECT_GT(arguments.size(), 80u);
    Run({L"diff", L"a.xml", L"b.xml"}, 1, _, "");
    Run(arguments, 0, "b.xml: 1 difference from before\n", "");
    Run({L"diff", L"a.xml", L"b.xml"}, 0, "", "");
}

TEST_F(HostTest, SetsRowsAndConstraints) {
    Run({L"new", L"d.xml"}, 0, _, "");
    Run({L"set", L"d.xml", L"19010/Bronze=present", L"19010/Bronze/10067=3mm", L"19010/Bronze/10068=0.5 in",
         L"19020/10165=KG", L"19020/Steel=present", L"19020/Steel/29119/1=0", L"19020/Steel/29120/1=no limit",
         L"19020/Steel/29118/1=5", L"19040/29183/4=none"},
        0, _, "");
    Run({L"show", L"d.xml"}, 0,
        AllOf(ContainsRegex("Bronze +yes +3 +12.7\n"), ContainsRegex("Steel +yes +0 +no limit +- +- +5\n"),
              HasSubstr("3 rows")),
        "");
    Run({L"set", L"d.xml", L"19010/Bronze=none", L"--dry-run"}, 0,
        ContainsRegex("Bronze: constraint +present"), "");
    Run({L"show", L"d.xml"}, 0, HasSubstr("Bronze"), "");
}

TEST_F(HostTest, RefusesWhatADialogRefuses) {
    m_folder.Write(L"d.xml", m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml")));
    const std::string before = m_folder.Read(L"d.xml");
    const std::pair<const wchar_t*, const char*> kCases[] = {
        {L"19010/10067=20mm", "The maximum is below the minimum."},
        {L"19010/Steel/10067=0", "Row 1: enter the minimum"},
        {L"19040/29183/1/to=30", "H1 must be 30.0"},
        {L"19030/29167=0", "other than zero"},
        {L"19020/Steel/29120/1=1", "Steel: "},
        {L"19010/10067=6kg", "the value is a length; its units are mm"},
        {L"19010/10067=6,5", "\"6,5\""},
        {L"19010/10067=-1", "is negative"},
        {L"19010/1067=6", "there is no such value; the nearest keys are 19010/10067,"},
        {L"19020/10165=stone", "is not a mass unit"},
        {L"19010/status=high", "is not a whole number"},
        {L"19010/status=99999999999", "is too large"},
        {L"[19010/10067=5mm,19010/10068=6mm]", "[19010/10067: there is no such value"},
        {L"19010/Bronze#2=present", "there is no such value"},
        {L"19010/Steel=present", "it is there already"},
        {L"19010/a%01b=present", "no control characters"},
        {L"19010/by-material=maybe", "is not yes or no"},
        {L"19020/Steel/29118/1=no limit", "only an upper size may have no limit"},
        {L"19040/Steel=present", "there is no such value"},
    };
    for (const auto& [assignment, reason] : kCases)
        Run({L"set", L"d.xml", L"19010/10068=17", assignment}, 1, "", HasSubstr(reason));
    Run({L"set", L"d.xml", L"19010/10067"}, 2, "", HasSubstr("is not KEY=VALUE"));
    EXPECT_EQ(m_folder.Read(L"d.xml"), before);
}
