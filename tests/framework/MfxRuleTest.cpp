#include "MfxRule.h"

#include "FrameworkTestSupport.h"

#include <tuple>

using testing::ElementsAre;

namespace {

CMfxParamStorage* AddLimit(CMfxRule& rule, long nId, double value, MfxOperator_e op = OperatorAtMost) {
    CMfxParamStorage* pStorage = rule.CreateParamStorageObject(TypeDouble, nId, op, ParamLimit, true, false);
    pStorage->GetValues<double>().Add(value);
    return pStorage;
}

CMFXConstraint* AddConstraint(CMfxRule& rule, const CString& strName, bool bActive, long nId, double value) {
    CMFXConstraint* pConstraint = rule.CreateConstraintObject(ConstraintByMaterial, strName, bActive);
    pConstraint->AddParameter(AddLimit(rule, nId, value));
    return pConstraint;
}

double FirstValue(const CMfxParamStorage* pStorage) {
    return pStorage->GetValues<double>()[0];
}

auto Header(CMfxRule& rule) {
    return std::tie(rule.m_strName, rule.m_strDisplayName, rule.m_strSummary, rule.m_strModule,
                    rule.m_strRuleCategory, rule.m_strRuleModule, rule.m_strRuleModuleFileName,
                    rule.m_strDescription, rule.m_strDialogImage, rule.m_nStatus, rule.m_nSeverity,
                    rule.m_nLifeStatus, rule.m_nRuleId, rule.m_nLengthUnit, rule.m_nAngleUnit,
                    rule.m_bPopulated, rule.m_bParametersCreated);
}

}  // namespace

TEST(MfxRuleTest, CreatesAndReleasesParameters) {
    CMfxRule rule;
    EXPECT_FALSE(rule.IsRuleParametric());
    const std::unique_ptr<CMfxParamStorage> pFirst(
        rule.CreateParamStorageObject(TypeTableRow, 10067, OperatorAtLeast, ParamTable, false, true));
    EXPECT_TRUE(rule.IsRuleParametric());
    EXPECT_EQ(pFirst->m_strName, L"Smallest wall");
    const CMfxParamStorage* const pSecond = AddLimit(rule, 10067, 1);
    for (const int nType : {0, 9})
        EXPECT_FALSE(rule.CreateParamStorageObject(static_cast<Type_e>(nType), 1, OperatorEqual, ParamText,
                                                   true, false));
    EXPECT_EQ(rule.FindParameterInArray(10067), pFirst.get()) << "the first one with the id";
    rule.ReleaseParamStorageObject(pFirst.get());
    EXPECT_EQ(rule.FindParameterInArray(10067), pSecond);
    EXPECT_EQ(rule.m_paramArray.GetCount(), 1);
    EXPECT_TRUE(rule.ValidateInputParameters({{10067, 0.5}}));
    EXPECT_FALSE(rule.ValidateInputParameters({{10067, 0.5}, {2, 0.5}}));
}

TEST(MfxRuleTest, ConstraintsTakeParametersAndSaveThem) {
    CMfxRule rule;
    CMFXConstraint& constraint = *rule.CreateConstraintObject(ConstraintByMaterial, L"Steel", false);
    EXPECT_FALSE(NodePtr(constraint.GetXMLNode())) << "no current document";
    MfxXMLDocument document;
    const CurrentDocumentScope scope(&document);
    for (const auto op : {OperatorAtMost, OperatorNone, OperatorTransient, OperatorAtLeast})
        constraint.AddParameter(AddLimit(rule, op, 0.1, op));
    constraint.AddParameter(nullptr);
    EXPECT_TRUE(rule.m_paramArray.IsEmpty());
    EXPECT_EQ(NodeListPtr(NodePtr(constraint.GetXMLNode())->GetNodeList(L""))->GetSize(), 2);
}

TEST(MfxRuleTest, FindsConstraintParameters) {
    CMfxRule rule;
    CMFXConstraint* const pSteel = AddConstraint(rule, L"Steel", true, 1, 0.5);
    pSteel->AddParameter(AddLimit(rule, 2, 2.5));
    pSteel->AddParameter(rule.CreateParamStorageObject(TypeText, 3, OperatorEqual, ParamText, true, false));
    AddConstraint(rule, L"Bronze", false, 1, 9);
    AddConstraint(rule, L"Steel", true, 1, 7);
    AddConstraint(rule, L"Iron", true, 4, 9);
    EXPECT_EQ(rule.FindParameterInConstraintArray(L"Steel", 1), pSteel->FindParameterInArray(1));
    EXPECT_FALSE(rule.FindParameterInConstraintArray(L"Bronze", 2));
    std::map<CString, std::vector<ConstraintParametersStruct>> found;
    rule.GetConstraintParameters({2, 1, 3, 99}, found);
    EXPECT_EQ(found.size(), 1u) << "only numbers under these ids in active constraints";
    std::vector<double> values;
    for (const ConstraintParametersStruct& parameter : found[L"Steel"])
        values.insert(values.end(), parameter.values.begin(), parameter.values.end());
    EXPECT_THAT(values, ElementsAre(2.5, 0.5, 7));
    EXPECT_EQ(found[L"Steel"][0].nParamId, 2);
}

TEST(MfxRuleTest, AssignmentCopiesEverythingDeep) {
    auto pRule = std::make_unique<CMfxRule>();
    pRule->SetRuleCategory(CategorySandCasting);
    const auto header = std::make_tuple(L"a", L"b", L"c", L"d", L"e", L"f", L"g", L"h", L"i", 11, 12, 13, 14,
                                        15, 16, true, true);
    Header(*pRule) = header;
    for (const LPCWSTR pszProcess : {L"first", L"second"}) pRule->m_processList.AddTail(pszProcess);
    AddLimit(*pRule, 1, 0.5);
    AddConstraint(*pRule, L"Steel", false, 2, 1.5);

    CMfxRule copy;
    copy.m_processList.AddTail(L"old");
    AddLimit(copy, 9, 9);
    AddConstraint(copy, L"old", true, 9, 9);
    for (CMfxRule* const pOther : {pRule.get(), &copy, static_cast<CMfxRule*>(nullptr)})
        EXPECT_EQ(&(copy = pOther), &copy);
    pRule->FindParameterInArray(1)->GetValues<double>()[0] = 77;
    pRule.reset();
    EXPECT_TRUE(Header(copy) == header);
    EXPECT_EQ(copy.GetRuleCategoryEnum(), CategorySandCasting);
    std::vector<CString> processes;
    for (POSITION pos = copy.m_processList.GetHeadPosition(); pos;)
        processes.push_back(copy.m_processList.GetNext(pos));
    EXPECT_THAT(processes, ElementsAre(L"first", L"second"));
    ASSERT_EQ(copy.m_paramArray.GetCount(), 1);
    EXPECT_EQ(FirstValue(copy.FindParameterInArray(1)), 0.5);
    ASSERT_EQ(copy.m_constraintArray.GetCount(), 1);
    CMFXConstraint& constraint = *copy.m_constraintArray[0];
    EXPECT_EQ(constraint.m_strName, L"Steel");
    EXPECT_FALSE(constraint.m_bActive);
    EXPECT_EQ(FirstValue(constraint.FindParameterInArray(2)), 1.5);
    constraint.AddParameter(copy.FindParameterInArray(1));
    EXPECT_TRUE(copy.m_paramArray.IsEmpty()) << "the copied constraint belongs to the copy";
}
