#include "HostTest.h"

using namespace testing;

namespace {

// A table row of the draft angle rule.
std::string Row(const std::vector<std::string>& cells) {
    std::string row = "<Value";
    for (std::size_t i = 0; i < cells.size(); ++i)
        row += " Attribute" + std::to_string(i + 1) + "=\"" + cells[i] + "\"";
    return row + "/>";
}

const std::string kRow = Row({"0", "25.4", "3", "2"});

struct CheckTest : HostTest {
    // Expects a finding in a document with such rows. What is not read is not converted either.
    void ExpectFinding(const std::string& rows, const std::string& finding, bool bConverted) const {
        SCOPED_TRACE(rows);
        m_folder.Write(L"d.xml", Document(rows));
        Run({L"check", L"d.xml"}, 1, ContainsRegex("\nd.xml:" + finding), "");
        Run({L"convert", L"d.xml", L"--length", L"in"}, !bConverted, _, _);
        EXPECT_EQ(m_folder.Read(L"d.xml") != Document(rows), bConverted);
    }

    // Each change to the sample with all rules gives one finding, beside hints.
    struct Change {
        std::string part, by, finding;
    };
    void ExpectFindings(const std::vector<Change>& changes) const {
        for (const auto& [part, by, finding] : changes) {
            SCOPED_TRACE(part + " -> " + by);
            m_folder.Write(L"d.xml", Replaced(m_all, part, by));
            const bool bHint = finding.starts_with("hint");
            Run({L"check", L"d.xml", L"--severity", bHint ? L"hint" : L"warning"}, !bHint,
                ContainsRegex(bHint ? finding : "^d.xml:\\d+: " + finding + ".*\n$"), "");
        }
    }

    const std::string m_all = m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"));
};

}  // namespace

TEST_F(CheckTest, NamesWhatIsNotRead) {
    const std::string criteria = "<ResultCriteria><AbsoluteValue>", end = "</AbsoluteValue></ResultCriteria>";
    const std::pair<std::string, std::string> kCases[] = {
        {Row({std::string(400, '9')}), "5: error: .* Attribute1: .* is not a number"},
        {Row({"0", "1,000.5", "3", "2"}),
         "5: error: .* Attribute2: \"1,000.5\" is not a number and reads as 1\n"},
        {Row({"0", "&#27;[2J&#127;&#155;é" + std::string(80, 'x'), "3", "2"}),
         "5: error: .* \".u001b.2J.u007f.u009bé" + std::string(73, 'x') + "...\" is not a number"},
        {Row({"0", "25.4", "3"}), "5: error: .* 3 cells"},
        {Replaced(kRow, "Attribute3", "Attribute9"), "5: error: .* Attribute3"},
        {Replaced(kRow, "Attribute3", "Attribute2=\"7\" Attribute3"),
         "5: error: Variable Draft Angle: Value: Attribute2 is repeated; only the first one is read\n"},
        {Replaced(kRow, "/>", ">25.4</Value>"), "5: error: .* Value: the text \"25.4\" is not read"},
        {kRow + "\n<OperatorOption>3,5</OperatorOption>", "6: error: .* \"3,5\" is not a whole number"},
        {kRow + "\n<Rule Name=\"n\"/>",
         "6: error: Variable Draft Angle: the rule \"n\" stands inside another element"},
        {kRow + "\n" + criteria + "7<Error/>" + end, "6: error: .* Error: not a severity"},
        {kRow + criteria + "\n7<Info/>" + end, "5: error: .* AbsoluteValue: the text \"\\\\n7\" is not read"},
        {kRow + criteria + "\n<Info><Value>1</Value><Value>2</Value><Value>3</Value></Info>" + end,
         "6: error: .* Info: only its first two values are read"},
        {kRow + "</Parameter><Parameter Type=\"29183\" Status=\"1\">",
         "5: error: .* it is repeated; only the first one is read\n"},
    };
    for (const auto& [rows, finding] : kCases) ExpectFinding(rows, finding, false);
}

TEST_F(CheckTest, NamesWhatIsUnusual) {
    const std::string row = kRow + "\n";
    const std::pair<std::string, std::string> kCases[] = {
        {Row({"0", "9", "90", "2"}), "5: error: .* not below 90"},
        {row + Row({"26", "30", "3", "2"}),
         "6: error: Variable Draft Angle: parameter 29183 .Draft angles by size., row 2 begins at 26 mm, but "
         "row 1 ends at 25.4 mm: sizes between are not covered\n"},
        {row + Row({"20", "30", "3", "2"}), "6: error: .* row 2 begins at 20 mm, .*: the bands overlap\n"},
        {row + Row({"25.4", "25.4", "3", "2"}), "6: error: .* row 2: the band ends where it begins"},
        {row + Row({"25.4", "20", "3", "2"}), "6: error: .* ends before it begins"},
        {row + Row({"25.4", "30", "4", "2"}), "6: hint: .* larger than in the row before"},
        {"", "3: error: .* the table is empty"},
        {kRow, "5: warning: .* Value: the dialog would drop this row, because its cell 5 is missing\n"},
        {Row({"0", "", "3", "2", "1"}), "5: warning: .* because its cell 2 is empty\n"},
        {Row({"0", "25.4", "3", "2", "", "1"}),
         "5: warning: .* the row has 6 cells; only the first five are used\n"},
        {row + "<Remarks>a&#1;b</Remarks>",
         "6: warning: Variable Draft Angle: Remarks: the text holds a control character; .*\n"},
        {Replaced(kRow, "<Value", "\n<Value note=\"\x1f\""), "6: warning: .* note holds a control character"},
        {kRow + "</Parameter><Parameter Type=\"4711\">",
         "5: warning: .* parameter 4711, unknown to the rule, left unchanged"},
    };
    for (const auto& [rows, finding] : kCases) ExpectFinding(rows, finding, true);
    // The record itself lacks "Status" and "LifeStatus": two warnings.
    m_folder.Write(L"d.xml", Document(kRow));
    Run({L"check", L"d.xml", L"--severity", L"error", L"--fail-on", L"error"}, 0, "", "");
    Run({L"check", L"d.xml", L"--severity", L"Warning", L"--json"}, 1,
        AllOf(HasSubstr("\"version\": 3"), HasSubstr("\"length\": \"mm\""), HasSubstr("\"line\": 2"),
              HasSubstr("\"ruleId\": 19040"), HasSubstr("\"rulesChecked\": 1"),
              HasSubstr("\"key\": \"missing-rule-number\"")),
        "");
}

// Of parameters, the document and its rules.
TEST_F(CheckTest, NamesWhatIsWrongWithParameters) {
    const std::string k6 = "<Value>6</Value>", kMinimum = R"(10067" Status="1")",
                      kVariation = "<Value>25</Value>";
    ExpectFindings({
        {kMinimum, R"(10067" Status="on")", "error: .* Parameter: Status=.on. is neither 0 nor 1"},
        {kMinimum, R"(10067")",
         "error: Uniform Wall Thickness: parameter 10067 .Minimum wall thickness., Parameter: Status is "
         "missing"},
        {"<ResultCriteria Status=\"0\"", "<ResultCriteria Status=\"off\"",
         "error: .* ResultCriteria: Status=.off. is neither"},
        {"CriteriaType=\"0\"", "CriteriaType=\"none\"",
         "error: .* CriteriaType=.none. is not a whole number"},
        {"<Operator>7<", "<Operator>1<", "error: .* Operator: it needs values in pairs or threes"},
        {k6, "", "error: .* Value: the limit has no value"},
        {k6, "<Value>0</Value>", "error: .* the limit has to be above zero"},
        {k6, "<Value>abc</Value>", "error: .* Value: .abc. is not a number and reads as 0"},
        {"1</ParameterType>\n      " + k6, "24</ParameterType>\n      <Value Attribute1=\"3\"/>",
         "error: .* ParameterType: it does not fit"},
        {k6, "<Value>2</Value>" + k6,
         "error: .* Value: the first of two values must be a switch, 0 or 1, but is 2"},
        {k6, "<Value>1</Value>" + k6 + "<Value>9</Value>",
         "error: .* Value: there are 3; a limit has one value, or a switch"},
        {"<Value>4.76</Value>", "<Value>1</Value><Value>25.4</Value>",
         "error: .* Value: there are 2; the limit of a material has one"},
        {"<AbsoluteDeviation />", "<AbsoluteDeviation><Info><Value>2</Value></Info></AbsoluteDeviation>",
         "hint: .* absolute deviations and values keep their numbers"},
        {kVariation, "", "error: .* Value: the variation has no value"},
        {kVariation, kVariation + "<Value>3</Value>",
         "warning: .* Value: there are 2; only the first one is used"},
        {"<Value>16</Value>", "<?Value 7?><Value>nan</Value>", "error: .* .nan. is not a number"},
        {" Unit=\"1\"", "", "warning: MfxRules: Unit is missing and reads as millimetres"},
        {"AngleUnit=\"0\"", "", "warning: MfxRules: AngleUnit is missing and reads as degrees"},
        {"Version=\"1\" U", "U", "warning: MfxRules: Version is missing and reads as 1"},
        {"Name=\"Wall Thickness Variation\"", "Name=\"Variable Draft Angle\"",
         "warning: Variable Draft Angle: the document has this rule more than once\n.* the parameter is "
         "missing\n.* "
         "unknown"},
    });
    m_folder.Write(L"d.xml", Replaced(m_all, kVariation, ""));
    Run({L"show", L"d.xml", L"--lang", L"english"}, 0, HasSubstr("\n  Wall thickness may vary by at most \n"),
        "");
}

TEST_F(CheckTest, NamesWhatIsWrongWithConstraints) {
    const std::string from = "<Value>0.5</Value>\n        <R", to = "<Value>0.5</Value>\n        <Value>10<";
    ExpectFindings({
        {"Gray Cast Iron", "Steel",
         "error: Uniform Wall Thickness: Constraint: the name .Steel. is used more than once"},
        {"Gray Cast Iron", "", "error: .* Constraint: its name is empty"},
        {"<Value>150</Value>\n      ", "<Value>160</Value>\n      ",
         "error: Wall Thickness by Cast Size and Weight: Aluminium Alloys: row 2 begins at 160 mm, but row 1 "
         "ends at 150 mm: sizes between are not covered"},
        {from, Replaced(from, "0.5", "0.4"),
         "error: .* row 2 begins at 0.4 kg, but row 1 ends at 0.5 kg: the bands overlap"},
        {to, Replaced(to, "10", "0.5"), "error: .* row 2: the weight band ends where it begins"},
        {"<Value>3</Value>", "<Value>-7</Value>", "error: .* row 1: the wall thickness is missing"},
        {"<Value>3.5</Value>", "<Value>2</Value>",
         "hint: .* Aluminium Alloys: row 2: the wall is thinner than in the band before"},
        {"<Value>10</Value>\n", "<Value>-inf</Value>\n", "error: .* .-inf. is not a number"},
    });
}

TEST_F(CheckTest, ChecksEveryFileWhateverIsWrongWithTheOthers) {
    m_folder.Write(L"good.xml", m_sample);
    m_folder.Write(L"none.xml", R"(<MfxRules Version="1" Unit="1" AngleUnit="0"/>)");
    Run({L"check", L"good.xml"}, 0, "", "");
    Run({L"check", L"none.xml", L"good.xml"}, 1, "none.xml:1: warning: there is no rule to check\n", "");
    m_folder.Write(L"twice.xml", "\xEF\xBB\xBF" + Replaced(m_sample, " Unit", " Unit=\"3\" Unit"));
    Run({L"check", L"twice.xml"}, 1,
        "twice.xml:2: error: MfxRules: Unit is repeated; only the first one is read\n", "");
    Run({L"check", Wide(MFX_SAMPLES "legacy-switched-limits.xml")}, 0,
        ContainsRegex(":9: hint: .*\n.*:21: hint: .* an older form: the first value is a switch"), "");
    Run({L"check", L"gone.xml", L"none.xml"}, 3, HasSubstr("none.xml:1: warning: there is"),
        HasSubstr("gone.xml: can't be read"));
    const std::string samples[] = {"all-rules", "default-rules", "draft-angle", "draft-angle-inches",
                                   "size-and-weight-metres"};
    for (const std::string& name : samples) Run({L"check", Wide(MFX_SAMPLES + name + ".xml")}, 0, "", "");
}
