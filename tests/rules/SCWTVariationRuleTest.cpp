#include "SCWTVariationRule.h"

#include "RuleTestSupport.h"

using VariationRuleTest = RuleTest;

static const CString kSummary = L"Variation admise de l'épaisseur de paroi\u00a0: ";

TEST_F(VariationRuleTest, FreshRule) {
    CMFXSCWTVariationRule rule(7), other(L"P", L"M", CategoryInjectionMoulding, 8);
    const CString strNames = L"Wall Thickness Variation; Variation de l'épaisseur de paroi; ";
    EXPECT_STREQ(State(rule), strNames + L"Moulage en sable; MFXSandCastingRulesValidator; " + kSummary +
                                  L"25.0;  29167:47,1: 25; 19 7 2 0 1 0 ; -300-1");
    EXPECT_STREQ(State(other),
                 strNames + L"P; M; " + kSummary + L"25.0;  29167:47,1: 25; 9 8 2 0 1 0 ; -300-1");
    EXPECT_EQ(rule.m_strDescription.GetString(), m_app.Text(29170));
    EXPECT_STREQ(rule.m_strHelpFilePath, L"\\lang\\french\\lang\\english\\mfxkit.chm");
}

TEST_F(VariationRuleTest, ReadsOnlyVariationsAndConvertsNone) {
    CMFXSCWTVariationRule rule(7);
    rule.PopulateFromXML(Record(Parameter(10067, "6")).get());
    EXPECT_TRUE(Values(rule) == L" 29167: 25" && rule.m_nStatus == 0 && !rule.m_bPopulated);
    const NodePtr pRecord = Record(Parameter(29167, "30.5"));
    for (int i = 0; i < 3; ++i) {
        rule.m_strSummary = L"old";
        if (i == 0) rule.PopulateFromXML(pRecord.get());
        if (i == 1) rule.ConvertUnits({1, 0}, {3, 2});
        if (i == 2) NodePtr(rule.BuildXMLNode());
        EXPECT_STREQ(Values(rule) + rule.m_strSummary, L" 29167: 30.5" + kSummary + L"30.5");
        EXPECT_EQ(Units(rule), UnitPair{});
    }
}
