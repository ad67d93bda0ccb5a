#include "HostTest.h"

#include <regex>

using namespace testing;

TEST_F(HostTest, ListsTheRulesInEveryLanguage) {
    const std::string kCases[][3] = {
        {"english", "Sand Casting Rules\nChecks wall", "Variable Draft Angle Sand Casting Draft angle req"},
        {"japanese", "砂型鋳造ルール\n砂型鋳造品の肉厚", "可変抜き勾配 砂型鋳造 鋳造フィーチャ"},
        {"korean", "사형 주조 규칙\n사형 주조품의", "가변 빼기 구배 사형 주조 주조 형상"},
        {"French", "Règles de moulage en sable\nContrôle les",
         "Angle de dépouille variable Moulage en sable A"},
        {"chinese-simplified", "砂型铸造规则\n检查砂型铸件的", "可变起模斜度 砂型铸造 按铸造特征"},
    };
    for (const auto& [language, head, rule] : kCases) {
        const ProcessResult run = Run({L"list", L"--lang", Wide(language)});
        EXPECT_THAT(std::regex_replace(run.out, std::regex(" +"), " "),
                    AllOf(StartsWith(head), HasSubstr("\n\n id rule "), HasSubstr("\n19040 " + rule),
                          ContainsRegex("19010 .*\n19020 .*\n19040 .*\n19030 ")));
        EXPECT_EQ(Run({L"--lang", Wide(language), L"list"}).out, run.out);
    }
}

TEST_F(HostTest, WritesANewDocumentButReplacesNoneUnasked) {
    Run({L"new", L"n.xml", L"--lang", L"english"}, 0, "n.xml: 4 rules in millimetres and degrees\n", "");
    EXPECT_EQ(m_folder.Read(L"n.xml"), m_folder.Read(Wide(MFX_SAMPLES "default-rules.xml")));

    m_folder.Write(L"n.xml", "mine");
    Run({L"new", L"n.xml"}, 2, "", HasSubstr("n.xml exists already; --force"));
    EXPECT_EQ(m_folder.Read(L"n.xml"), "mine");
    Run({L"new", L"n.xml", L"--force", L"--lang", L"french"}, 0, _, "");
    EXPECT_THAT(m_folder.Read(L"n.xml"), HasSubstr("Angles de dépouille selon la taille"));
    Run({L"diff", L"n.xml", Wide(MFX_SAMPLES "default-rules.xml")}, 0, "", "");
    Run({L"show", L"n.xml", L"--lang", L"japanese"}, 0, HasSubstr("サイズ別抜き勾配"), "");
    EXPECT_THAT(m_folder.Names(), ElementsAre(L"n.xml"));
}

TEST_F(HostTest, ShowsADocument) {
    m_folder.Write(L"i.xml", m_inches);
    Run({L"show", L"i.xml", L"--lang", L"japanese"}, 0,
        R"(i.xml: 1 rule in inches and degrees

可変抜き勾配 (rule 19040)
  鋳造フィーチャのサイズに応じて必要な抜き勾配
  status 0, severity 1
     id  parameter         active  value
  29183  サイズ別抜き勾配  yes     3 rows
    from [in]   to [in]  angle 1 [deg]  angle 2 [deg]  angle 3 [deg]
          0.0       1.0            3.0            3.0              -
          1.0       4.0            1.5            2.5            1.0
          4.0  no limit            1.0            1.0            1.0
)",
        "");
    // An ideograph beyond the basic plane is as wide as any other.
    m_folder.Write(L"d.xml", Document(R"(<Value Attribute1="吉吉吉吉吉"/><Value Attribute1="𠮷"/>)"));
    Run({L"show", L"d.xml"}, 1, HasSubstr("\n    吉吉吉吉吉\n            𠮷\n"), _);
}

// Its schema is tested elsewhere.
TEST_F(HostTest, ShowsADocumentAsJson) {
    const auto show = [&](const std::string& document) {
        m_folder.Write(L"d.xml", document);
        const ProcessResult run = Run({L"show", L"d.xml", L"--json", L"--lang", L"japanese"});
        EXPECT_EQ(run.nExitCode, 1);
        return std::regex_replace(run.out, std::regex("\n *"), "");
    };
    const std::string row =
        R"(<Value Attribute1=".5" Attribute2="1000000000.0" Attribute3="" Attribute4="1.2.3"/>)";
    EXPECT_THAT(
        show(Document(row, R"(<Rule Name="Bend" Module="Other"/>)")),
        AllOf(
            HasSubstr(
                R"({"key": "Bend","line": 1,"rule": "Bend","ruleId": null,"recognised": false,"recordName": "Bend",)"
                R"("module": "Other"},{"key": "19040","line": 2,"rule": "可変抜き勾配","ruleId": 19040,"recognised": true,)"
                R"("recordName": "Variable Draft Angle",)"),
            HasSubstr(
                R"({"key": "to","name": "to","unit": "mm"},{"key": "angle1","name": "angle 1","unit": "deg"})"),
            HasSubstr(R"("rows": [[0.5,"no limit",null,"1.2.3"]])"),
            HasSubstr(
                R"({"key": "number-misread","severity": "error","line": 5,"rule": "可変抜き勾配",)"
                R"("ruleId": 19040,"parameter": 29183,"place": "19040/29183","text": "Attribute4: \"1.2.3\" is not)")));
    const std::string metres = m_folder.Read(Wide(MFX_SAMPLES "size-and-weight-metres.xml"));
    EXPECT_THAT(show(Replaced(Replaced(metres, ">0.6<", ">1e999<"), "9\" Status=\"1", "9\" Status=\"0")),
                AllOf(HasSubstr(R"("constraints": [{"constraint": "Steel","active": true)"),
                      HasSubstr(R"("active": false,"unit": "m","values": [0.0,0.2])"),
                      HasSubstr(R"("active": true,"unit": "m","values": [0.2,"inf"])"),
                      HasSubstr(R"("unit": "lb","values": [null,null])")));
}

TEST_F(HostTest, TakesAnyPath) {
    const std::wstring path = m_folder.Write(L"日本 語 𠮷 %TEMP% é.xml", m_sample);
    const std::wstring rooted = Wide(MFX_SAMPLES "draft-angle.xml").substr(2);  // "/..." on the current drive
    for (const std::wstring& given : {path, m_folder.Names()[0], rooted}) {
        Run({L"convert", given, L"--length", L"cm", L"-o", L"出力 𠮷.xml"}, 0,
            "出力 𠮷.xml: 1 rule converted from millimetres and degrees to centimetres and degrees\n", "");
        Run({L"show", given}, 0, StartsWith(Utf8(given) + ": 1 rule in millimetres "), "");
        Run({L"show", L"出力 𠮷.xml"}, 0, HasSubstr("1 rule in centimetres and degrees"), "");
    }
    Run({L"show", L"ない 𠮷.xml"}, 3, "", HasSubstr("ない 𠮷.xml: can't be read"));
    EXPECT_EQ(m_folder.Names().size(), 2u);
}

TEST_F(HostTest, ReadsStandardInputAndWritesStandardOutput) {
    const std::wstring input = m_folder.Write(L"d.xml", m_sample);
    const auto run = [&](const Arguments& arguments) {
        return RunProcess(ProgramFolder() + L"\\mfxhost.exe", arguments, m_folder.Path(), 30000, nullptr,
                          input);
    };
    const ProcessResult converted = run({L"convert", L"-", L"--length", L"in"});
    Run({L"convert", L"d.xml", L"--length", L"in", L"-o", L"i.xml"}, 0, _, _);
    EXPECT_EQ(converted.out, m_folder.Read(L"i.xml"));
    EXPECT_THAT(converted.err, StartsWith("-: 1 rule converted from millimetres"));
    const std::string same = run({L"convert", L"-", L"--length", L"mm"}).out;  // it is in these already
    EXPECT_THAT(same, StartsWith("<?xml"));
    EXPECT_THAT(m_sample, StartsWith(same));
    EXPECT_EQ(run({L"diff", L"i.xml", L"-"}).nExitCode, 0);
    EXPECT_EQ(run({L"check", L"-", L"i.xml"}).nExitCode, 0);
    EXPECT_EQ(Run({L"new", L"-"}).out, m_folder.Read(Wide(MFX_SAMPLES "default-rules.xml")));
    for (const Arguments& twice :
         {Arguments{L"limits", L"-", L"--csv", L"-"}, {L"import", L"-", L"-", L"--rule", L"19040"}}) {
        const ProcessResult refused = run(twice);
        EXPECT_EQ(refused.nExitCode, 2);
        EXPECT_THAT(refused.err, HasSubstr("only once"));
    }
    Run({L"show", L"-"}, 3, "", StartsWith("mfxhost: -: the file is empty"));
}
