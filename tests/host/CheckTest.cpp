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
        {row + "</Parameter><Parameter Type=\"4711\">",
         "5: warning: .* parameter 4711, it is none of the rule's"},
    };
    for (const auto& [rows, finding] : kCases) {
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
    Run({L"check", L"gone.xml", L"none.xml"}, 3, HasSubstr("none.xml: there is"),
        HasSubstr("gone.xml: can't be read"));
    const std::string samples[] = {"all-rules", "default-rules", "draft-angle", "draft-angle-inches",
                                   "size-and-weight-metres"};
    for (const std::string& name : samples) Run({L"check", Wide(MFX_SAMPLES + name + ".xml")}, 0, "", "");
}
