#include "MfxRule.h"

#include "FrameworkTestSupport.h"

#include <tuple>

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
    ASSERT_EQ(rule.m_paramArray.GetCount(), 1);
    EXPECT_EQ(pFirst->m_strName, L"Smallest wall");
    EXPECT_TRUE(pFirst->GetType() == TypeTableRow && pFirst->m_operator == OperatorAtLeast &&
                pFirst->m_paramType == ParamTable && !pFirst->m_bStatus && pFirst->m_bReadOnly);
    const CMfxParamStorage* const pSecond = AddLimit(rule, 10067, 1);
    for (const int nType : {0, 9, -1})
        EXPECT_FALSE(rule.CreateParamStorageObject(static_cast<Type_e>(nType), 1, OperatorEqual, ParamText,
                                                   true, false));
    EXPECT_EQ(rule.FindParameterInArray(10067), pFirst.get()) << "the first one with the id";
    rule.ReleaseParamStorageObject(pFirst.get());
    EXPECT_TRUE(rule.m_paramArray.GetCount() == 1 && rule.FindParameterInArray(10067) == pSecond);
    EXPECT_TRUE(rule.IsRuleParametric() && rule.ValidateInputParameters({{10067, 0.5}}));
    EXPECT_FALSE(rule.ValidateInputParameters({{10067, 0.5}, {2, 0.5}}));
}

TEST(MfxRuleTest, ConstraintsTakeParametersAndKeepThemInTheirElements) {
    CMfxRule rule;
    CMFXConstraint& constraint = *rule.CreateConstraintObject(ConstraintByMaterial, L"Steel", false);
    EXPECT_FALSE(NodePtr(constraint.GetXMLNode())) << "no current document";
    MfxXMLDocument document;
    const CurrentDocumentScope scope(&document);
    CMfxParamStorage* const pKept = AddLimit(rule, 1, 1);
    for (const auto op : {OperatorAtMost, OperatorNone, OperatorTransient, OperatorAtLeast})
        constraint.AddParameter(AddLimit(rule, op, 0.1, op));
    constraint.AddParameter(nullptr);
    EXPECT_TRUE(constraint.FindParameterInArray(OperatorAtMost) && !constraint.FindParameterInArray(1));
    EXPECT_TRUE(rule.m_paramArray.GetCount() == 1 && rule.FindParameterInArray(1) == pKept);

    const NodePtr pRoot(document.CreateRootNode(L"Rule")), pNode(constraint.GetXMLNode());
    pRoot->AppendNode(pNode.get());
    EXPECT_THAT(document.ToUtf8(), testing::HasSubstr(R"(<Constraint Type="1" Value="Steel" Status="0">)"));
    EXPECT_EQ(NodeListPtr(pNode->GetNodeList(L""))->GetSize(), 2) << "those that are saved";
    CMFXConstraint& read = *AddConstraint(rule, L"Bronze", true, OperatorAtLeast, 7);
    CMfxParamStorage& limit = *read.FindParameterInArray(OperatorAtLeast);
    MfxXMLNode *pNone = nullptr, *pElement = pNode.get();
    read.PopulateFromXML(pNone);
    EXPECT_EQ(limit.GetValues<double>()[0], 7);
    read.PopulateFromXML(pElement);
    EXPECT_TRUE(limit.GetValues<double>()[0] == 0.1 && limit.m_operator == OperatorAtLeast);
    EXPECT_TRUE(read.m_strName == L"Bronze" && read.m_bActive);
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
    const std::vector<ConstraintParametersStruct>& steel = found[L"Steel"];
    ASSERT_TRUE(found.size() == 1 && steel.size() == 3) << "numbers under these ids in active constraints";
    EXPECT_TRUE(steel[0].nParamId == 2 && steel[0].values == std::vector{2.5} &&
                steel[2].values == std::vector{7.0});
}

TEST(MfxRuleTest, AssignmentCopiesEverythingDeep) {
    auto pRule = std::make_unique<CMfxRule>();
    pRule->SetRuleCategory(CategorySandCasting);
    const auto header = std::make_tuple(L"a", L"b", L"c", L"d", L"e", L"f", L"g", L"h", L"i", 11, 12, 13, 14,
                                        15, 16, true, true);
    Header(*pRule) = header;
    pRule->m_processList.AddTail(L"Sand Casting");
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
    EXPECT_TRUE(copy.m_processList.GetCount() == 1 && copy.m_processList.GetHead() == L"Sand Casting");
    ASSERT_TRUE(copy.m_paramArray.GetCount() == 1 && copy.m_constraintArray.GetCount() == 1);
    EXPECT_EQ(copy.FindParameterInArray(1)->GetValues<double>()[0], 0.5);
    CMFXConstraint& constraint = *copy.m_constraintArray[0];
    EXPECT_TRUE(constraint.m_strName == L"Steel" && !constraint.m_bActive);
    EXPECT_EQ(constraint.FindParameterInArray(2)->GetValues<double>()[0], 1.5);
    constraint.AddParameter(copy.FindParameterInArray(1));
    EXPECT_TRUE(copy.m_paramArray.IsEmpty()) << "the copied constraint belongs to the copy";
}
