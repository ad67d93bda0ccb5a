#include "RuleTestSupport.h"
#include "SCVariableDraftAngleRule.h"
#include "SCWTVariationRule.h"
#include "UniformThicknessRule.h"
#include "WTBasedOnCastSizeAndWeightRule.h"

namespace {

// Names, parameters and headers of rules with the module's own header are seen in the host's default
// document.
struct FreshRulesTest : RuleTest {
    CMFXUniformThicknessRule m_uniform{7}, m_otherUniform{L"P", L"M", CategoryInjectionMoulding, 8, nullptr};
    CMFXWTBasedOnCastSizeAndWeightRule m_byWeight{nullptr},
        m_otherByWeight{L"P", L"M", CategoryInjectionMoulding, 8, nullptr};
    CMFXSCVariableDraftAngleRule m_draft;
    CMFXSCWTVariationRule m_variation{7}, m_otherVariation{L"P", L"M", CategoryInjectionMoulding, 8};
};

}  // namespace

TEST_F(FreshRulesTest, TakeTheHeaderThatIsGiven) {
    for (const CMfxRule* pRule :
         std::initializer_list<CMfxRule*>{&m_otherUniform, &m_otherByWeight, &m_otherVariation}) {
        SCOPED_TRACE(pRule->m_strName.GetString());
        EXPECT_STREQ(pRule->m_processList.GetHead(), L"P");
        EXPECT_STREQ(pRule->m_strModule, L"M");
        EXPECT_EQ(pRule->GetRuleCategoryEnum(), CategoryInjectionMoulding);
        EXPECT_EQ(pRule->GetRuleId(), 8);
    }
    EXPECT_STREQ(m_otherUniform.m_strSummary,
                 L"Épaisseur de paroi minimale\u00a0: 2.0 mm  Épaisseur de paroi maximale\u00a0: 3.0 mm");
    EXPECT_EQ(m_uniform.GetRuleId(), 7);
    EXPECT_EQ(m_variation.GetRuleId(), 7);
    EXPECT_STREQ(m_variation.m_strDescription, m_app.LoadLocalizedString(29170));
    EXPECT_STREQ(m_variation.m_strHelpFilePath, L"\\lang\\french\\lang\\english\\mfxkit.chm");
}

TEST_F(FreshRulesTest, AnswerTheHost) {
    const struct {
        CMfxRule& rule;
        int nExecute, nExecuteAlternate, nMaterialStatus, nStatusAfterFive;
    } kCases[] = {
        {m_uniform, -3, 0, 0, 0},
        {m_byWeight, 0, -3, 0, 5},
        {m_draft, 0, 0, -1, 5},
        {m_variation, -3, 0, -1, 0},
    };
    for (const auto& [rule, nExecute, nExecuteAlternate, nMaterialStatus, nStatusAfterFive] : kCases) {
        SCOPED_TRACE(rule.m_strName.GetString());
        EXPECT_EQ(Units(rule), (UnitPair{1, 0}));
        EXPECT_TRUE(rule.m_bParametersCreated);
        EXPECT_TRUE(rule.AcceptRuleData(nullptr));
        EXPECT_EQ(rule.Execute({}, {}, {}, 0), nExecute);
        EXPECT_EQ(rule.ExecuteAlternate({}, {}, {}, 0), nExecuteAlternate);
        EXPECT_EQ(rule.GetMaterialStatus(), nMaterialStatus);
        rule.SetRuleStatusForAssemblyModel(5);
        EXPECT_EQ(rule.m_nStatus, nStatusAfterFive);
    }
}
