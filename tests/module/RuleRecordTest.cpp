#include "RuleRecord.h"

#include "ModuleTestSupport.h"
#include "resource.h"
#include "support/MessageBoxRecorder.h"

#include <gmock/gmock.h>

#include <regex>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// Parameters 1 to 5, of which 1 and 3 are not saved. The value of each is its id.
struct CTestRule : CMfxRule {
    CTestRule() {
        m_strName = L"N";
        m_strSummary = L"S";
        m_strModule = L"M";
        m_strRuleModule = L"R";
        m_strRuleModuleFileName = L"C:\\a\\b\\rules.dll";
        m_nStatus = 1;
        m_nLifeStatus = -2;
        m_nSeverity = 3;
        SetRuleCategory(CategorySandCasting);
        for (const auto op :
             {OperatorNone, OperatorEqual, OperatorTransient, OperatorAtMost, OperatorAtLeast}) {
            const int nId = m_paramArray.GetCount() + 1;
            CreateParamStorageObject(TypeInteger32, nId, op, ParamLimit, true, false)
                ->GetValues<std::int32_t>()
                .Add(nId);
        }
        CreateConstraintObject(ConstraintByMaterial, L"Steel", true);
    }
    void PostPopulate() override { ++m_nPostPopulates; }

    int m_nPostPopulates = 0;
};

class RuleRecordTest : public testing::Test {
  protected:
    ~RuleRecordTest() override { EXPECT_EQ(AfxGetResourceHandle(), GetModuleHandleW(nullptr)); }

    void Read(const std::string& record) {
        MfxXMLDocument document;
        EXPECT_TRUE(document.Parse(record).bOk) << record;
        ReadRuleRecord(&m_rule, NodePtr(document.GetRootNode()).get());
    }
    std::string Written() {
        MfxXMLDocument document;
        SetRuleDocument(&document);
        const NodePtr pRoot(document.CreateRootNode(L"Rules")), pRecord(WriteRuleRecord(&m_rule));
        SetRuleDocument(nullptr);
        EXPECT_FALSE(NodePtr(pRecord->GetParentNode()));
        pRoot->AppendNode(pRecord.get());
        return document.ToUtf8();
    }
    // Of parameters (their ids), then of constraints.
    std::vector<std::string> WrittenTypes() {
        const std::string text = Written();
        const std::regex type(" Type=\"(\\d+)\"");
        return {std::sregex_token_iterator(text.begin(), text.end(), type, 1), {}};
    }
    std::vector<int> Values() const {
        std::vector<int> values;
        for (const auto& param : m_rule.m_paramArray)
            values.push_back(param.m_pStorage->GetValues<std::int32_t>()[0]);
        return values;
    }

    StartedApp m_app{L"english"};
    const CString m_strUnknownType = m_app.Text(IDS_UNKNOWN_PARAMETER_TYPE).c_str();
    MessageBoxRecorder m_boxes;
    CTestRule m_rule;
};

}  // namespace

TEST_F(RuleRecordTest, WritesAttributesSavedParametersConstraints) {
    EXPECT_THAT(Written(), HasSubstr(R"(<Rule Name="N" Status="1" LifeStatus="-2" Summary="S" Module="M" )"
                                     R"(RuleModule="R" RuleModuleFileName="rules.dll" Severity="3" )"
                                     R"(RuleCategory="Sand Casting">)"));
    const std::string constraint = std::to_string(ConstraintByMaterial);
    EXPECT_THAT(WrittenTypes(), ElementsAre("2", "4", "5", constraint));
    // A type that there is not is left out; the first parameter is not saved, so nobody asks for its type.
    for (const Type_e type : {static_cast<Type_e>(0), static_cast<Type_e>(TypeTableRow + 1)}) {
        for (const int i : {0, 1, 4}) m_rule.m_paramArray[i].m_type = type;
        for (int i = 0; i < 2; ++i) m_boxes.Expect(m_strUnknownType);
        EXPECT_THAT(WrittenTypes(), ElementsAre("4", constraint));
        m_boxes.Verify();
        EXPECT_STREQ(m_boxes.m_strCaption, L"mfx_module_tests");
    }
}

TEST_F(RuleRecordTest, UnknownTypeEndsTheReading) {
    m_rule.m_paramArray[1].m_type = static_cast<Type_e>(TypeTableRow + 1);
    m_boxes.Expect(m_strUnknownType);
    Read(R"(<Rule Name="read"><Parameter Type="1"><Value>20</Value></Parameter>)"
         R"(<Parameter Type="4"><Value>50</Value></Parameter></Rule>)");
    EXPECT_THAT(Values(), ElementsAre(20, 2, 3, 4, 5));
    EXPECT_STREQ(m_rule.m_strName, L"read");
    EXPECT_FALSE(m_rule.m_bPopulated);
    EXPECT_EQ(m_rule.m_nPostPopulates, 0);
}

TEST_F(RuleRecordTest, ReadsTheHeaderWithoutSummaryAndCategory) {
    const std::string header = R"( Module="m" RuleModule="r" RuleModuleFileName="f.dll" )";
    Read(R"(<Rule Name="n" Status="4" LifeStatus="5" Summary="s")" + header +
         R"(Severity="6" RuleCategory="c"/>)");
    EXPECT_TRUE(m_rule.m_bPopulated);
    EXPECT_EQ(m_rule.m_nPostPopulates, 1);
    EXPECT_THAT(Written(), HasSubstr(R"(<Rule Name="n" Status="4" LifeStatus="5" Summary="S")" + header +
                                     R"(Severity="6" RuleCategory="Sand Casting">)"));
    // Texts that are missing stay; numbers do not.
    Read(R"(<Rule Status="7abc" LifeStatus="x5"/>)");
    EXPECT_THAT(Written(), HasSubstr(R"(<Rule Name="n" Status="7" LifeStatus="-1" Summary="S")" + header +
                                     R"(Severity="-1")"));
    ReadRuleRecord(&m_rule, nullptr);
    EXPECT_EQ(m_rule.m_nPostPopulates, 2);
}
