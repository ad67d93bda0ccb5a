#include "HostTest.h"

using namespace testing;

namespace {

// What is asked of all-rules.xml, and a text of the answer.
struct Question {
    std::vector<std::wstring> arguments;
    const char* answer;
    int exitCode = 0;
};

}  // namespace

class LimitsTest : public HostTest {
  protected:
    LimitsTest() { m_folder.Write(L"a.xml", m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"))); }

    void Ask(const std::vector<Question>& questions) const {
        for (const auto& [asked, answer, exitCode] : questions) {
            Arguments arguments = {L"limits", L"a.xml"};
            arguments.insert(arguments.end(), asked.begin(), asked.end());
            const TextMatcher text = ContainsRegex(answer), nothing = "";
            Run(arguments, exitCode, exitCode == 2 ? nothing : text, exitCode == 2 ? text : nothing);
        }
    }
};

TEST_F(LimitsTest, FindsBandsAndMaterials) {
    const wchar_t* const aluminium = L"ALUMINIUM alloys";
    Ask({{{L"--material", L"steel"}, "6.35 mm +19010/Steel/10068\n"},
         {{L"--material", L"Gray Cast Iron"}, "not in force: \"Gray Cast Iron\" is not active; limits by"},
         {{L"--material", L"Gray Cast Iron"}, "incomplete: .* is a material and no group"},
         {{L"--material", L"Bronze", L"--group", L"Steel", L"--size", L"1"},
          "5 mm +19020/Steel/29118/1\n",
          1},
         {{}, "incomplete: no material is given; "},
         {{}, "25 +19030/29167\n"},
         {{L"--material", L"Stel"},
          "not found: there is no material \"Stel\"; the nearest names are Steel",
          1},
         {{L"--group", L"Stel"}, "not found: there is no group \"Stel\"; the nearest names are Steel", 1},
         {{L"--size", L"101"}, "band 3 of the table: size from 50.8 to 101 mm\n"},
         {{L"--size", L"4in"}, "band 4 of the table"},
         {{L"--size", L"203.1"}, "not found: no band of the table .*; they are of size from 0 to 203 mm", 1},
         {{L"--group", aluminium, L"--size", L"150"}, "incomplete: no weight is given\n"},
         {{L"--group", aluminium, L"--size", L"150", L"--weight", L"0.5"},
          "3 mm +19020/Aluminium Alloys/29118/1\n"},
         {{L"--group", aluminium, L"--size", L"150", L"--weight", L"1.2lb"}, "29118/2\n"},
         {{L"--group", aluminium, L"--size", L"100", L"--weight", L"5"}, "size and weight; they are of", 1},
         {{L"--size", L"3kg"}, "--size: .*the value is a length", 2},
         {{L"--csv", L"c.csv", L"--size", L"3"}, "only -o goes with it", 2},
         {{L"--csv", L"c.csv", L"-o", L".\\A.xml"}, "-o names the rule document itself", 2}});
}

TEST_F(LimitsTest, SaysWhatIsNotInForce) {
    Run({L"set", L"a.xml", L"19010/Steel/active=no", L"19010/10068/active=no", L"19030/29167/active=no",
         L"19020/10165=g", L"19020/Steel/29120/3=0", L"19040/29183/4/to=no limit"},
        0, _, "");
    Ask({{{L"--material", L"Steel"},
          "the first material, \"Steel\", decides and is not active; the maximum is "},
         {{L"--material", L"Steel"}, "6 mm +19010/10067\n"},
         {{}, "not in force: the value is switched off\n"},
         {{L"--group", L"Steel", L"--size", L"9m"}, "size from 600 mm on\n"},
         {{L"--size", L"9m"}, "size from 101 mm on\n"},
         {{L"--group", L"aluminium alloys", L"--size", L"9", L"--weight", L"300"},
          "weight from 100 to 500 g\n"}});
    Run({L"set", L"a.xml", L"19010/10067/active=no", L"19040/29183/active=no"}, 0, _, "");
    Ask({{{L"--size", L"9"}, "not in force: .*; the minimum is switched off; the maximum is"},
         {{L"--size", L"9"}, "not in force: the table is switched off\n"}});
}

TEST_F(LimitsTest, AnswersATableOfCastings) {
    m_folder.Write(L"c.csv",
                   "weight [lb],name,material,size [in],group\n"
                   " ,\"Housing, left\",STEEL ,1,\n"
                   "1,Lid,Steel,one,\n"
                   "9,Rib,Steel,90,Aluminium Alloys\n");
    Run({L"limits", L"a.xml", L"--csv", L"c.csv", L"-o", L"out.csv"}, 1,
        "c.csv: 3 castings, 2 with a problem\n", "");
    EXPECT_THAT(
        m_folder.Read(L"out.csv"),
        StrEq("weight [lb],name,material,size [in],group,19010 minimum [mm],19010 maximum [mm],"
              "19020 minimum [mm],19040 angle 1 [deg],19040 angle 2 [deg],19040 angle 3 [deg],"
              "19030 largest variation,problem\r\n"
              " ,\"Housing, left\",STEEL ,1,,4.76,6.35,5,3,3,1.5,25,\r\n"
              "1,Lid,Steel,one,,,,,,,,,\"c.csv:3: size [in]: \"\"one\"\" is not a number with a "
              "decimal point\"\r\n"
              "9,Rib,Steel,90,Aluminium Alloys,4.76,6.35,,,,,25,\"19020: no band of the group "
              "\"\"Aluminium Alloys\"\" holds a casting of this size and weight; they are of size from "
              "0 to 400 mm, weight from 0.1 to 10 kg; 19040: no band of the table holds a casting of "
              "this size; they are of size from 0 to 203 mm\"\r\n"));
    Run({L"limits", L"a.xml", L"--csv", L"-"}, 3, "", HasSubstr("- is empty"));
    m_folder.Write(L"c.csv", "name,wieght\nA,1\n");
    Run({L"limits", L"a.xml", L"--csv", L"c.csv"}, 1, "", HasSubstr("c.csv:1: \"wieght\" is not a heading"));
}
