#include "MfxRule.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>

namespace {

CMfxParamStorage* AddLimit(CMfxRule& rule, long nId, double value) {
    CMfxParamStorage* pStorage =
        rule.CreateParamStorageObject(TypeDouble, nId, OperatorAtMost, ParamLimit, true, false);
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
    const std::unique_ptr<CMfxParamStorage> pFirst(
        rule.CreateParamStorageObject(TypeTableRow, 10067, OperatorAtLeast, ParamTable, false, true));
    ASSERT_EQ(rule.m_paramArray.GetCount(), 1);
    EXPECT_TRUE(rule.m_paramArray[0].m_type == TypeTableRow && pFirst->GetType() == TypeTableRow);
    EXPECT_EQ(pFirst->m_strName, L"Smallest wall");
    EXPECT_TRUE(pFirst->m_nParamId == 10067 && pFirst->m_operator == OperatorAtLeast &&
                pFirst->m_paramType == ParamTable);
    EXPECT_TRUE(!pFirst->m_bStatus && pFirst->m_bReadOnly);
    const CMfxParamStorage* const pSecond = AddLimit(rule, 10067, 1);
    for (const int nType : {0, 9, -1})
        EXPECT_FALSE(rule.CreateParamStorageObject(static_cast<Type_e>(nType), 1, OperatorEqual, ParamText,
                                                   true, false));
    EXPECT_EQ(rule.FindParameterInArray(10067), pFirst.get()) << "the first one with the id";
    EXPECT_EQ(rule.FindParameterInArray(1), nullptr);
    rule.ReleaseParamStorageObject(pFirst.get());
    EXPECT_TRUE(rule.m_paramArray.GetCount() == 1 && rule.FindParameterInArray(10067) == pSecond);
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
    EXPECT_TRUE(rule.FindParameterInConstraintArray(L"Bronze", 1) &&
                !rule.FindParameterInConstraintArray(L"Bronze", 2));

    std::map<CString, std::vector<ConstraintParametersStruct>> found;
    rule.GetConstraintParameters({2, 1, 3, 99}, found);
    const std::vector<ConstraintParametersStruct>& steel = found[L"Steel"];
    ASSERT_TRUE(found.size() == 1 && steel.size() == 3) << "numbers under these ids in active constraints";
    EXPECT_TRUE(steel[0].nParamId == 2 && steel[1].nParamId == 1);
    EXPECT_TRUE(steel[0].values == std::vector{2.5} && steel[2].values == std::vector{7.0});
    rule.ClearConstraints();
    EXPECT_TRUE(rule.m_constraintArray.IsEmpty() && !rule.FindParameterInConstraintArray(L"Steel", 1));
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
    EXPECT_EQ(copy.m_paramArray[0].m_type, TypeDouble);
    EXPECT_EQ(copy.FindParameterInArray(1)->GetValues<double>()[0], 0.5);
    CMFXConstraint& constraint = *copy.m_constraintArray[0];
    EXPECT_TRUE(constraint.m_type == ConstraintByMaterial && constraint.m_strName == L"Steel" &&
                !constraint.m_bActive);
    EXPECT_EQ(constraint.FindParameterInArray(2)->GetValues<double>()[0], 1.5);
    constraint.AddParameter(copy.FindParameterInArray(1));
    EXPECT_TRUE(copy.m_paramArray.IsEmpty()) << "the copied constraint belongs to the copy";
}

TEST(MfxRuleTest, OperationsThatARuleDoesNotOverride) {
    struct Rule : CMfxRule {
        void ConfigureRuleDialog() override { ++nDialogs; }
        int nDialogs = 0;
    } rule;
    EXPECT_TRUE(!rule.m_bPopulated && rule.m_nLengthUnit == 1 && rule.m_nAngleUnit == 0 &&
                !rule.IsRuleParametric());
    EXPECT_TRUE(!rule.Execute(nullptr, nullptr, nullptr, 1) &&
                !rule.ExecuteAlternate(nullptr, nullptr, nullptr, 1));
    EXPECT_TRUE(!rule.BuildXMLNode() && rule.AcceptRuleData(nullptr) && rule.ValidateInputData());
    EXPECT_TRUE(rule.GetRequiredInputData().IsEmpty() && rule.GetMaterialStatus() == -1 &&
                rule.GetCutterStatus() == 0);
    rule.ConfigureRule(nullptr);
    rule.SetDialogImageInfo(L"picture");
    rule.SetRuleStatusForAssemblyModel(4);
    rule.m_nRuleId = 19010;
    EXPECT_TRUE(rule.nDialogs == 1 && rule.m_strDialogImage == L"picture" && rule.m_nStatus == 4 &&
                rule.GetRuleId() == 19010);
    rule.SetRuleCategory(CategorySandCasting);
    EXPECT_TRUE(rule.GetRuleCategoryEnum() == 19 && rule.m_strRuleCategory == L"Sand Casting");
    AddLimit(rule, 1, 0);
    EXPECT_TRUE(rule.IsRuleParametric() && rule.ValidateInputParameters({{1, 0.5}}));
    EXPECT_FALSE(rule.ValidateInputParameters({{1, 0.5}, {2, 0.5}}));
}
