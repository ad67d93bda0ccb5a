#include "HostTest.h"

using namespace testing;

TEST_F(HostTest, ChecksRecordsAndValues) {
    const std::string row = R"(<Value Attribute1="0" Attribute2="25.4" Attribute3="3" Attribute4="2"/>)";
    const std::pair<std::string, std::string> kCases[] = {
        {R"(<Value Attribute1="0" Attribute2="9" Attribute3="90" Attribute4="2"/>)",
         "5: error: .* not below 90"},
        {row + "\n" + R"(<Value Attribute1="26" Attribute2="30" Attribute3="3" Attribute4="2"/>)",
         "6: error: .* row 2: .* instead of at 25.4"},
        {row + "\n" + R"(<Value Attribute1="25.4" Attribute2="20" Attribute3="3" Attribute4="2"/>)",
         "6: error: .* ends before it begins"},
        {row + "\n" + R"(<Value Attribute1="25.4" Attribute2="30" Attribute3="4" Attribute4="2"/>)",
         "6: hint: .* larger than for smaller sizes"},
        {"<Value Attribute1=\"" + std::string(400, '9') + "\"/>",
         "5: error: .* Attribute1: .* is not a number"},
        {"", "3: error: .* the table is empty"},
        {R"(<Value Attribute1="0" Attribute2="1,000.5" Attribute3="3" Attribute4="2"/>)",
         "5: error: .* Attribute2: \"1,000.5\" is not a number"},
        {R"(<Value Attribute1="0" Attribute2="1 000" Attribute3="3" Attribute4="2"/>)",
         "5: error: .* \"1 000\" is not a number"},
        {Replaced(row, "Attribute3", "Attribute2=\"7\" Attribute3"),
         "5: error: Variable Draft Angle: Value: Attribute2 stands here again; only the first one is "
         "read\n$"},
        {Replaced(row, "/>", ">25.4</Value>"), "5: error: .* Value: the text \"25.4\" is not read"},
        {row + "\n<OperatorOption>3,5</OperatorOption>", "6: error: .* \"3,5\" is not a whole number"},
        {row + "\n<Remarks>a&#1;b</Remarks>",
         "6: warning: Variable Draft Angle: Remarks: the text holds a control character, .*\n$"},
        {Replaced(row, "<Value", "\n<Value note=\"\x1f\""), "6: warning: .* note holds a control character"},
        {row + "\n<Rule Name=\"n\"/>",
         "6: error: Variable Draft Angle: the rule \"n\" stands inside another element"},
        {row + "\n<ResultCriteria><AbsoluteValue>7<Error/></AbsoluteValue></ResultCriteria>",
         "6: error: .* Error: it is not a severity"},
        {row + "<ResultCriteria><AbsoluteValue>\n7<Info/></AbsoluteValue></ResultCriteria>",
         "5: error: .* AbsoluteValue: the text \"\n7\" is not read"},
        {row +
             "<ResultCriteria><AbsoluteValue>\n<Info><Value>1</Value><Value>2</Value><Value>3</Value></Info>"
             "</AbsoluteValue></ResultCriteria>",
         "6: error: .* Info: only its first two values are read"},
        {row + "</Parameter><Parameter Type=\"4711\">",
         "5: warning: .* parameter 4711, it is none of the rule's"},
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
              HasSubstr("\"ruleId\": 19040"), HasSubstr("\"rulesChecked\": 1")),
        "");
}

TEST_F(HostTest, ChecksEveryFileWhateverIsWrongWithTheOthers) {
    m_folder.Write(L"good.xml", m_sample);
    m_folder.Write(L"none.xml", "<MfxRules/>");
    Run({L"check", L"good.xml"}, 0, "", "");
    Run({L"check", L"none.xml", L"good.xml"}, 1, "none.xml: there is no rule to check\n", "");
    m_folder.Write(L"twice.xml", "\xEF\xBB\xBF" + Replaced(m_sample, " Unit", " Unit=\"3\" Unit"));
    Run({L"check", L"twice.xml"}, 1,
        "twice.xml:2: error: MfxRules: Unit stands here again; only the first one is read\n", "");
    Run({L"check", Wide(MFX_SAMPLES "legacy-switched-limits.xml")}, 1,
        ContainsRegex(":9: hint: .*\n.*:21: hint: .* an older form: the first value is a switch"), "");
    Run({L"check", L"gone.xml", L"none.xml"}, 3, HasSubstr("none.xml: there is"),
        HasSubstr("gone.xml: can't be read"));
    const std::string samples[] = {"all-rules", "default-rules", "draft-angle", "draft-angle-inches",
                                   "size-and-weight-metres"};
    for (const std::string& name : samples) Run({L"check", Wide(MFX_SAMPLES + name + ".xml")}, 0, "", "");
}
