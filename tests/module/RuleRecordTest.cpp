#include "RuleRecord.h"

#include "ModuleTestSupport.h"
#include "resource.h"
#include "support/MessageBoxRecorder.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

constexpr auto kUnknownType = static_cast<Type_e>(TypeTableRow + 1);

// Parameters 1 to 5, of which 1 and 3 are not saved, and two constraints with a parameter 10. The value of
// each is its id.
struct CTestRule : CMfxRule {
    CTestRule() {
        std::tie(m_strName, m_strSummary, m_strModule, m_strRuleModule) = std::tuple(L"N", L"S", L"M", L"R");
        std::tie(m_nStatus, m_nLifeStatus, m_nSeverity) = std::tuple(1, -2, 3);
        m_strRuleModuleFileName = L"C:\\a\\b\\rules.dll";
        SetRuleCategory(CategorySandCasting);
        int nId = 0;
        for (const auto op :
             {OperatorNone, OperatorEqual, OperatorTransient, OperatorAtMost, OperatorAtLeast})
            AddParameter(++nId, op);
        for (const wchar_t* pszName : {L"Steel", L"Iron"})
            CreateConstraintObject(ConstraintByMaterial, pszName, true)
                ->AddParameter(AddParameter(10, OperatorEqual));
    }
    CMfxParamStorage* AddParameter(int nId, MfxOperator_e op) {
        CMfxParamStorage* pStorage =
            CreateParamStorageObject(TypeInteger32, nId, op, ParamLimit, true, false);
        pStorage->GetValues<std::int32_t>().Add(nId);
        return pStorage;
    }
    void PostPopulate() override { ++m_nPostPopulates; }

    CString Header() const {
        CString strHeader;
        strHeader.Format(L"%s %s %s %s %s %s %d %d %d", m_strName.GetString(), m_strModule.GetString(),
                         m_strRuleModule.GetString(), m_strRuleModuleFileName.GetString(),
                         m_strSummary.GetString(), m_strRuleCategory.GetString(), m_nStatus, m_nLifeStatus,
                         m_nSeverity);
        return strHeader;
    }

    // Of the parameters, then of the constraints.
    std::vector<int> Values() const {
        std::vector<int> values;
        const auto add = [&](const MfxParamArray& params) {
            for (const auto& param : params) values.push_back(param.m_pStorage->GetValues<std::int32_t>()[0]);
        };
        add(m_paramArray);
        for (const CMFXConstraint* pConstraint : m_constraintArray) add(pConstraint->m_paramArray);
        return values;
    }

    int m_nPostPopulates = 0;
};

class RuleRecordTest : public testing::Test {
  protected:
    RuleRecordTest() { SetRuleDocument(&m_document); }
    ~RuleRecordTest() override { EXPECT_EQ(AfxGetResourceHandle(), GetModuleHandleW(nullptr)); }

    void Read(const std::string& record) {
        EXPECT_TRUE(m_document.Parse(record).bOk) << record;
        ReadRuleRecord(&m_rule, NodePtr(m_document.GetRootNode()).get());
    }

    // Parameter ids and constraint names of the children of the written record.
    std::vector<std::wstring> WrittenChildren() {
        const NodePtr pRecord(WriteRuleRecord(&m_rule));
        const std::unique_ptr<MfxXMLNodeList> pChildren(pRecord->GetNodeList(L""));
        std::vector<std::wstring> children;
        for (long i = 0; i < pChildren->GetSize(); ++i) {
            CString strKey;
            (*pChildren)[i]->GetAttributeValue(L"Type", strKey);
            (*pChildren)[i]->GetAttributeValue(L"Value", strKey);  // constraints have both
            children.emplace_back(strKey);
        }
        return children;
    }

    StartedApp m_app{L"english"};
    const CString m_strUnknownType = m_app.Text(IDS_UNKNOWN_PARAMETER_TYPE).c_str();
    MessageBoxRecorder m_boxes;
    MfxXMLDocument m_document;
    CTestRule m_rule;
};

std::string Parameter(int nId, int nValue) {
    return "<Parameter Type='" + std::to_string(nId) + "'><Value>" + std::to_string(nValue) +
           "</Value></Parameter>";
}
std::string Constraint(int nValue) {
    return "<Constraint>" + Parameter(10, nValue) + "</Constraint>";
}

}  // namespace

TEST_F(RuleRecordTest, WritesAttributesSavedParametersConstraints) {
    const NodePtr pRoot(m_document.CreateRootNode(L"Rules")), pRecord(WriteRuleRecord(&m_rule));
    EXPECT_FALSE(NodePtr(pRecord->GetParentNode()));
    pRoot->AppendNode(pRecord.get());
    EXPECT_THAT(m_document.ToUtf8(),
                testing::HasSubstr(
                    R"(<Rule Name="N" Status="1" LifeStatus="-2" Summary="S" Module="M" RuleModule="R" )"
                    R"(RuleModuleFileName="rules.dll" Severity="3" RuleCategory="Sand Casting">)"));
    EXPECT_THAT(WrittenChildren(), ElementsAre(L"2", L"4", L"5", L"Steel", L"Iron"));

    m_rule.m_strRuleModuleFileName = L"bare.dll";
    CString strFile;
    NodePtr(WriteRuleRecord(&m_rule))->GetAttributeValue(L"RuleModuleFileName", strFile);
    EXPECT_STREQ(strFile, L"bare.dll");
}

TEST_F(RuleRecordTest, UnknownTypeIsLeftOutOfTheRecordButEndsTheReading) {
    for (const Type_e type : {kUnknownType, static_cast<Type_e>(0)}) {
        // The first one is not saved, so nobody asks for its type.
        for (const int i : {0, 1, 4}) m_rule.m_paramArray[i].m_type = type;
        m_boxes.Expect(m_strUnknownType);
        m_boxes.Expect(m_strUnknownType);
        EXPECT_THAT(WrittenChildren(), ElementsAre(L"4", L"Steel", L"Iron"));
        m_boxes.Verify();
        EXPECT_STREQ(m_boxes.m_strCaption, L"mfx_module_tests");
    }
    m_rule.m_paramArray[0].m_type = TypeInteger32;
    m_boxes.Expect(m_strUnknownType);
    Read("<Rule Name='read'>" + Parameter(1, 20) + Parameter(4, 50) + Constraint(60) + Constraint(70) +
         "</Rule>");
    EXPECT_THAT(m_rule.Values(), ElementsAre(20, 2, 3, 4, 5, 10, 10));
    EXPECT_STREQ(m_rule.m_strName, L"read");
    EXPECT_TRUE(!m_rule.m_bPopulated && m_rule.m_nPostPopulates == 0);
}

TEST_F(RuleRecordTest, ReadsTheHeaderWithoutSummaryAndCategory) {
    Read(
        "<Rule Name='n' Module='m' RuleModule='r' RuleModuleFileName='f.dll' Summary='s' RuleCategory='c' "
        "Status='4' LifeStatus='5' Severity='6'/>");
    EXPECT_STREQ(m_rule.Header(), L"n m r f.dll S Sand Casting 4 5 6");
    EXPECT_TRUE(m_rule.m_bPopulated && m_rule.m_nPostPopulates == 1);
    // Texts that are missing stay; numbers do not.
    Read("<Rule Status='7abc' LifeStatus='x5'/>");
    EXPECT_STREQ(m_rule.Header(), L"n m r f.dll S Sand Casting 7 -1 -1");
}

TEST_F(RuleRecordTest, ReadsConstraintsOnlyWhenTheirNumberIsRight) {
    for (const auto& [text, nFirst, nSecond] : {std::tuple{Constraint(60), 10, 10},
                                                {Constraint(60) + Constraint(70) + Constraint(80), 10, 10},
                                                {Constraint(60) + "<Other/>" + Constraint(70), 60, 70}}) {
        Read("<Rule>" + Parameter(1, -1) + text + "</Rule>");
        EXPECT_THAT(m_rule.Values(), ElementsAre(-1, 2, 3, 4, 5, nFirst, nSecond)) << text;
    }
    ReadRuleRecord(&m_rule, nullptr);
    EXPECT_EQ(m_rule.m_nPostPopulates, 3);
}
