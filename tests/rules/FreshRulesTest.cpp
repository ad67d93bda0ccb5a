#include "RuleTestSupport.h"
#include "SCVariableDraftAngleRule.h"
#include "SCWTVariationRule.h"
#include "UniformThicknessRule.h"
#include "WTBasedOnCastSizeAndWeightRule.h"

namespace {

// Names, labels and kinds of parameters are seen in the host's default document.
struct FreshRule {
    CMfxRule& rule;
    bool bOwnHeader;  // of this module, or the one given
    int nRuleId;
    UINT nNameId;
    CString strParameters;
    int nExecute, nExecuteAlternate, nMaterialStatus, nStatusAfterFive;
};

struct FreshRulesTest : RuleTest {
    void ExpectHeader(const FreshRule& fresh) {
        const CMfxRule& rule = fresh.rule;
        EXPECT_STREQ(rule.m_strDisplayName, m_app.LoadLocalizedString(fresh.nNameId));
        EXPECT_STREQ(rule.m_processList.GetHead(), fresh.bOwnHeader ? L"Moulage en sable" : L"P");
        EXPECT_STREQ(rule.m_strModule, fresh.bOwnHeader ? L"MFXSandCastingRulesValidator" : L"M");
        EXPECT_EQ(rule.GetRuleCategoryEnum(), fresh.bOwnHeader ? 19 : 9);
        EXPECT_EQ(rule.GetRuleId(), fresh.nRuleId);
        EXPECT_STREQ(Values(rule), fresh.strParameters);
        EXPECT_EQ(Units(rule), (UnitPair{1, 0}));
        EXPECT_TRUE(rule.m_bParametersCreated);
    }
    static void ExpectAnswers(const FreshRule& fresh) {
        EXPECT_TRUE(fresh.rule.AcceptRuleData(nullptr));
        EXPECT_EQ(fresh.rule.Execute({}, {}, {}, 0), fresh.nExecute);
        EXPECT_EQ(fresh.rule.ExecuteAlternate({}, {}, {}, 0), fresh.nExecuteAlternate);
        EXPECT_EQ(fresh.rule.GetMaterialStatus(), fresh.nMaterialStatus);
        fresh.rule.SetRuleStatusForAssemblyModel(5);
        EXPECT_EQ(fresh.rule.m_nStatus, fresh.nStatusAfterFive);
    }
};

}  // namespace

TEST_F(FreshRulesTest, AreAsDocumented) {
    CMFXUniformThicknessRule uniform(7), otherUniform(L"P", L"M", CategoryInjectionMoulding, 8, nullptr);
    CMFXWTBasedOnCastSizeAndWeightRule byWeight(nullptr),
        otherByWeight(L"P", L"M", CategoryInjectionMoulding, 8, nullptr);
    CMFXSCVariableDraftAngleRule draft;
    CMFXSCWTVariationRule variation(7), otherVariation(L"P", L"M", CategoryInjectionMoulding, 8);
    const FreshRule kCases[] = {
        {uniform, true, 7, 10063, L" 10067: 6 10068: 16", -3, 0, 0, 0},
        {otherUniform, false, 8, 10063, L" 10067: 2 10068: 3", -3, 0, 0, 0},
        {byWeight, true, 19020, 10122, L" 10165: kg", 0, -3, 0, 5},
        {otherByWeight, false, 8, 10122, L" 10165: kg", 0, -3, 0, 5},
        {draft, true, 19040, 29192, L" 29183:", 0, 0, -1, 5},
        {variation, true, 7, 29168, L" 29167: 25", -3, 0, -1, 0},
        {otherVariation, false, 8, 29168, L" 29167: 25", -3, 0, -1, 0},
    };
    for (const FreshRule& fresh : kCases) {
        SCOPED_TRACE(testing::Message() << fresh.nNameId << ", id " << fresh.nRuleId);
        ExpectHeader(fresh);
        ExpectAnswers(fresh);
    }
    EXPECT_STREQ(otherUniform.m_strSummary,
                 L"Épaisseur de paroi minimale\u00a0: 2.0 mm  Épaisseur de paroi maximale\u00a0: 3.0 mm");
    EXPECT_STREQ(variation.m_strDescription, m_app.LoadLocalizedString(29170));
    EXPECT_STREQ(variation.m_strHelpFilePath, L"\\lang\\french\\lang\\english\\mfxkit.chm");
}
