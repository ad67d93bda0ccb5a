#include "HostTest.h"

using namespace testing;

TEST_F(HostTest, ChecksRecordsAndValues) {
    const std::string row = R"(<Value Attribute1="0" Attribute2="25.4" Attribute3="3" Attribute4="2"/>)";
    const std::pair<std::string, std::string> kCases[] = {
        {R"(<Value Attribute1="0" Attribute2="9" Attribute3="90" Attribute4="2"/>)",
         "5: error: .* not below 90"},
        {row + "\n" + R"(<Value Attribute1="26" Attribute2="30" Attribute3="3" Attribute4="2"/>)",
         "6: error: Variable Draft Angle: parameter 29183 .Draft angles by size., row 2 begins at 26 mm, but "
         "row 1 ends at 25.4 mm: sizes between are not covered\n"},
        {row + "\n" + R"(<Value Attribute1="20" Attribute2="30" Attribute3="3" Attribute4="2"/>)",
         "6: error: .* row 2 begins at 20 mm, .*: the bands overlap\n"},
        {row + "\n" + R"(<Value Attribute1="25.4" Attribute2="25.4" Attribute3="3" Attribute4="2"/>)",
         "6: error: .* row 2: the band ends where it begins"},
        {row + "\n" + R"(<Value Attribute1="25.4" Attribute2="20" Attribute3="3" Attribute4="2"/>)",
         "6: error: .* ends before it begins"},
        {row + "\n" + R"(<Value Attribute1="25.4" Attribute2="30" Attribute3="4" Attribute4="2"/>)",
         "6: hint: .* larger than for smaller sizes"},
        {"<Value Attribute1=\"" + std::string(400, '9') + "\"/>",
         "5: error: .* Attribute1: .* is not a number"},
        {"", "3: error: .* the table is empty"},
        {R"(<Value Attribute1="0" Attribute2="1,000.5" Attribute3="3" Attribute4="2"/>)",
         "5: error: .* Attribute2: \"1,000.5\" is not a number and reads as 1\n"},
        {R"(<Value Attribute1="0" Attribute2="1 000" Attribute3="3" Attribute4="2"/>)",
         "5: error: .* \"1 000\" is not a number"},
        {Replaced(row, "Attribute3", "Attribute2=\"7\" Attribute3"),
         "5: error: Variable Draft Angle: Value: Attribute2 is repeated; only the first one is read\n$"},
        {Replaced(row, "/>", ">25.4</Value>"), "5: error: .* Value: the text \"25.4\" is not read"},
        {row + "\n<OperatorOption>3,5</OperatorOption>", "6: error: .* \"3,5\" is not a whole number"},
        {row + "\n<Remarks>a&#1;b</Remarks>",
         "6: warning: Variable Draft Angle: Remarks: the text holds a control character; .*\n$"},
        {Replaced(row, "<Value", "\n<Value note=\"\x1f\""), "6: warning: .* note holds a control character"},
        {row + "\n<Rule Name=\"n\"/>",
         "6: error: Variable Draft Angle: the rule \"n\" stands inside another element"},
        {row + "\n<ResultCriteria><AbsoluteValue>7<Error/></AbsoluteValue></ResultCriteria>",
         "6: error: .* Error: it is not a severity"},
        {row + "<ResultCriteria><AbsoluteValue>\n7<Info/></AbsoluteValue></ResultCriteria>",
         "5: error: .* AbsoluteValue: the text \"\\\\n7\" is not read"},
        {row +
             "<ResultCriteria><AbsoluteValue>\n<Info><Value>1</Value><Value>2</Value><Value>3</Value></Info>"
             "</AbsoluteValue></ResultCriteria>",
         "6: error: .* Info: only its first two values are read"},
        {row + "</Parameter><Parameter Type=\"29183\" Status=\"1\">",
         "5: error: .* it is repeated; only the first one is read\n"},
        {row, "5: warning: .* Value: the dialog would drop this row, because its cell 5 is missing\n"},
        {R"(<Value Attribute1="0" Attribute2="" Attribute3="3" Attribute4="2" Attribute5="1"/>)",
         "5: warning: .* because its cell 2 is empty\n"},
        {Replaced(row, "/>", R"( Attribute5="" Attribute6="1"/>)"),
         "5: warning: .* the row has 6 cells; only the first five are used\n"},
        {Replaced(row, "25.4", "&#27;[2J&#127;&#155;é" + std::string(80, 'x')),
         "5: error: .* \".u001b.2J.u007f.u009bé" + std::string(73, 'x') + "...\" is not a number"},
        {row + "</Parameter><Parameter Type=\"4711\">",
         "5: warning: .* parameter 4711, unknown to the rule, left unchanged"},
    };
    for (const auto& [rows, finding] : kCases) {
        SCOPED_TRACE(rows);
        m_folder.Write(L"d.xml", Document(rows));
        Run({L"check", L"d.xml"}, 1, ContainsRegex("\nd.xml:" + finding), "");
    }
    // The record itself lacks "Status" and "LifeStatus": two warnings.
    m_folder.Write(L"d.xml", Document(row));
    Run({L"check", L"d.xml", L"--severity", L"error"}, 0, "", "");
    Run({L"check", L"d.xml", L"--severity", L"Warning", L"--json"}, 1,
        AllOf(HasSubstr("\"version\": 1"), HasSubstr("\"length\": \"mm\""), HasSubstr("\"line\": 2"),
              HasSubstr("\"ruleId\": 19040"), HasSubstr("\"rulesChecked\": 1"),
              HasSubstr("\"key\": \"missing-rule-number\"")),
        "");
}

TEST_F(HostTest, ChecksWhatRecordsSay) {
    const std::string all = m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"));
    const std::string limit = "Uniform Wall Thickness: parameter 10067 .Minimum wall thickness., ",
                      bands = "Wall Thickness by Cast Size and Weight: Aluminium Alloys: ";
    const std::string from = "<Value>0.5</Value>\n        <R", to = "<Value>0.5</Value>\n        <Value>10<";
    const struct {
        std::string part, by, findings;
    } kCases[] = {
        {R"(10067" Status="1")", R"(10067" Status="on")",
         "error: " + limit + "Parameter: Status=\"on\" is neither 0 nor 1"},
        {R"(10067" Status="1")", R"(10067")", "error: " + limit + "Parameter: Status is missing"},
        {"<ResultCriteria Status=\"0\"", "<ResultCriteria Status=\"off\"",
         "error: " + limit + "ResultCriteria: Status=\"off\" is neither 0 nor 1"},
        {"CriteriaType=\"0\"", "CriteriaType=\"none\"",
         "error: " + limit + "ResultCriteria: CriteriaType=\"none\" is not a whole number"},
        {"<Value>6</Value>", "", "error: " + limit + "Value: the limit has none"},
        {"<Value>6</Value>", "<Value>0</Value>", "error: " + limit + "the limit has to be above zero"},
        {"<Value>6</Value>", "<Value>abc</Value>",
         "error: " + limit + "Value: \"abc\" is not a number and reads as 0"},
        {"1</ParameterType>\n      <Value>6</Value>", "24</ParameterType>\n      <Value Attribute1=\"3\"/>",
         "error: " + limit + "ParameterType: it does not fit the parameter's values"},
        {"<Value>16</Value>", "<Value>nan</Value>", "error: .* \"nan\" is not a number"},
        {"<Value>6</Value>", "<Value>2</Value><Value>6</Value>",
         "error: " + limit + "Value: the first of two values is a switch, 0 or 1, and not 2"},
        {"<Value>6</Value>", "<Value>1</Value><Value>6</Value><Value>9</Value>",
         "error: " + limit + "Value: there are 3; a limit has one value, or a switch and one value"},
        {"<Value>4.76</Value>", "<Value>1</Value><Value>25.4</Value>",
         "error: " + limit + "Value: there are 2; the limit of a material has one value"},
        {"<AbsoluteDeviation />", "<AbsoluteDeviation><Info><Value>2</Value></Info></AbsoluteDeviation>",
         "hint: " + limit + "ResultCriteria: absolute deviations and values keep their numbers"},
        {"<Value>25</Value>", "", "error: .* Value: the variation has none"},
        {"<Value>25</Value>", "<Value>25</Value><Value>3</Value>",
         "warning: .* Value: there are 2; only the first one is used"},
        {"<Value>16</Value>", "<?Value 7?><Value>nan</Value>", "error: .* \"nan\" is not a number"},
        {" Unit=\"1\"", "", "warning: MfxRules: Unit is missing and taken for millimetres"},
        {"AngleUnit=\"0\"", "", "warning: MfxRules: AngleUnit is missing and taken for degrees"},
        {"Version=\"1\" U", "U", "warning: MfxRules: Version is missing and taken for 1"},
        {"</MfxRules>",
         R"(<Rule Name="Variable Draft Angle" Module="MFXSandCastingRulesValidator" Severity="2" Status="0" )"
         R"(LifeStatus="0"><Parameter Type="29183" Status="1"><Operator>3</Operator><ParameterType>24</)"
         R"(ParameterType><Value Attribute1="0" Attribute2="9" Attribute3="2" Attribute4="2" )"
         R"(Attribute5=""/></Parameter></Rule></MfxRules>)",
         "warning: Variable Draft Angle: the document has this rule more than once"},
        {"Gray Cast Iron", "Steel",
         "error: Uniform Wall Thickness: Constraint: the name \"Steel\" is used more than once"},
        {"Gray Cast Iron", "", "error: Uniform Wall Thickness: Constraint: its name is empty"},
        {"<Value>150</Value>\n      ", "<Value>160</Value>\n      ",
         "error: " + bands +
             "row 2 begins at 160 mm, but row 1 ends at 150 mm: sizes between are not covered"},
        {from, Replaced(from, "0.5", "0.4"),
         "error: " + bands + "row 2 begins at 0.4 kg, but row 1 ends at 0.5 kg: the bands overlap"},
        {to, Replaced(to, "10", "0.5"), "error: " + bands + "row 2: the weight band ends where it begins"},
        {"<Value>3</Value>", "<Value>-7</Value>", "error: " + bands + "row 1: the wall thickness is missing"},
        {"<Value>3.5</Value>", "<Value>2</Value>",
         "hint: .* Aluminium Alloys: row 2: the wall is thinner than in the band before"},
        {"<Value>10</Value>\n", "<Value>-inf</Value>\n", "error: .* \"-inf\" is not a number"},
    };
    for (const auto& [part, by, findings] : kCases) {
        SCOPED_TRACE(part + " -> " + by);
        m_folder.Write(L"d.xml", Replaced(all, part, by));
        const bool bHint = findings.starts_with("hint");
        Run({L"check", L"d.xml", L"--severity", bHint ? L"hint" : L"warning"}, 1,
            ContainsRegex(bHint ? findings : "^d.xml:\\d+: " + findings + "\n$"), "");
    }
    m_folder.Write(L"d.xml", Replaced(all, "<Value>25</Value>", ""));
    Run({L"show", L"d.xml", L"--lang", L"english"}, 0, HasSubstr("\n  Wall thickness may vary by at most \n"),
        "");
    Run({L"check", Wide(MFX_SAMPLES "all-rules.xml")}, 1,
        ContainsRegex("^.*:154: hint: .* Status=\"0\" has no effect: .*\n$"), "");
}

TEST_F(HostTest, ChecksEveryFileWhateverIsWrongWithTheOthers) {
    m_folder.Write(L"good.xml", m_sample);
    m_folder.Write(L"none.xml", R"(<MfxRules Version="1" Unit="1" AngleUnit="0"/>)");
    Run({L"check", L"good.xml"}, 0, "", "");
    Run({L"check", L"none.xml", L"good.xml"}, 1, "none.xml: there is no rule to check\n", "");
    m_folder.Write(L"twice.xml", "\xEF\xBB\xBF" + Replaced(m_sample, " Unit", " Unit=\"3\" Unit"));
    Run({L"check", L"twice.xml"}, 1,
        "twice.xml:2: error: MfxRules: Unit is repeated; only the first one is read\n", "");
    Run({L"check", Wide(MFX_SAMPLES "legacy-switched-limits.xml")}, 1,
        ContainsRegex(":9: hint: .*\n.*:21: hint: .* an older form: the first value is a switch"), "");
    Run({L"check", L"gone.xml", L"none.xml"}, 3, HasSubstr("none.xml: there is"),
        HasSubstr("gone.xml: can't be read"));
    const std::string samples[] = {"default-rules", "draft-angle", "draft-angle-inches",
                                   "size-and-weight-metres"};
    for (const std::string& name : samples) Run({L"check", Wide(MFX_SAMPLES + name + ".xml")}, 0, "", "");
}
