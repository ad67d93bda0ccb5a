#include "RuleTestSupport.h"
#include "SCVariableDraftAngleRule.h"
#include "SCWTVariationRule.h"
#include "UniformThicknessRule.h"
#include "WTBasedOnCastSizeAndWeightRule.h"

namespace {

struct FreshRulesTest : RuleTest {
    // A fresh rule: texts; category, id, severity, status, units; results, the status after being told 5.
    CString State(CMfxRule& rule) const {
        EXPECT_TRUE(rule.m_bParametersCreated && !rule.m_bPopulated && rule.AcceptRuleData(nullptr));
        for (const auto& [type, p] : rule.m_paramArray)
            EXPECT_EQ(p->m_strName.GetString(), m_app.Text(static_cast<UINT>(p->m_nParamId)));
        std::wostringstream text;
        for (const CString& str : {rule.m_strName, rule.m_strDisplayName, rule.m_processList.GetHead(),
                                   rule.m_strModule, rule.m_strSummary, Values(rule.m_paramArray, true)})
            text << str.GetString() << L"; ";
        for (const int n : {rule.GetRuleCategoryEnum(), rule.GetRuleId(), rule.m_nSeverity, rule.m_nStatus,
                            rule.m_nLengthUnit, rule.m_nAngleUnit})
            text << n << L" ";
        rule.SetRuleStatusForAssemblyModel(5);
        text << L"; " << rule.Execute({}, {}, {}, 0) << rule.ExecuteAlternate({}, {}, {}, 0) << rule.m_nStatus
             << rule.GetMaterialStatus();
        return text.str().c_str();
    }
};

const CString kSummary = L"Variation admise de l'épaisseur de paroi\u00a0: ";

}  // namespace

TEST_F(FreshRulesTest, AreAsDocumented) {
    const CString
        strOwn = L"Moulage en sable; MFXSandCastingRulesValidator; ",
        strLow = L"Épaisseur de paroi minimale\u00a0: ",
        strHigh = L" mm  Épaisseur de paroi maximale\u00a0: ",
        strUniform = L"Uniform Wall Thickness; Épaisseur de paroi uniforme; ",
        strSizeAndWeight =
            L"Wall Thickness by Cast Size and Weight; Épaisseur de paroi selon la taille et le poids; ",
        strBands = CString(m_app.Text(10123).c_str()) + L";  10165:53,0: kg; ",
        strVariation = L"Wall Thickness Variation; Variation de l'épaisseur de paroi; ",
        strPercent = kSummary + L"25.0;  29167:47,1: 25; ";
    const auto check = [&](CMfxRule&& rule, const CString& strState) { EXPECT_STREQ(State(rule), strState); };
    check(CMFXUniformThicknessRule(7), strUniform + strOwn + strLow + L"6.0" + strHigh +
                                           L"16.0 mm;  10067:47,1: 6 10068:48,1: 16; 19 7 2 0 1 0 ; -3000");
    check(CMFXUniformThicknessRule(L"P", L"M", CategoryInjectionMoulding, 8, nullptr),
          strUniform + L"P; M; " + strLow + L"2.0" + strHigh +
              L"3.0 mm;  10067:47,1: 2 10068:48,1: 3; 9 8 2 0 1 0 ; -3000");
    check(CMFXWTBasedOnCastSizeAndWeightRule(nullptr),
          strSizeAndWeight + strOwn + strBands + L"19 19020 2 0 1 0 ; 0-350");
    check(CMFXWTBasedOnCastSizeAndWeightRule(L"P", L"M", CategoryInjectionMoulding, 8, nullptr),
          strSizeAndWeight + L"P; M; " + strBands + L"9 8 2 0 1 0 ; 0-350");
    check(CMFXSCVariableDraftAngleRule(), L"Variable Draft Angle; Angle de dépouille variable; " + strOwn +
                                              m_app.Text(29193).c_str() +
                                              L";  29183:83,24:; 19 19040 2 0 1 0 ; 005-1");
    check(CMFXSCWTVariationRule(7), strVariation + strOwn + strPercent + L"19 7 2 0 1 0 ; -300-1");
    check(CMFXSCWTVariationRule(L"P", L"M", CategoryInjectionMoulding, 8),
          strVariation + L"P; M; " + strPercent + L"9 8 2 0 1 0 ; -300-1");
}

TEST_F(FreshRulesTest, VariationReadsOnlyVariationsAndConvertsNone) {
    CMFXSCWTVariationRule rule(7);
    EXPECT_EQ(rule.m_strDescription.GetString(), m_app.Text(29170));
    EXPECT_STREQ(rule.m_strHelpFilePath, L"\\lang\\french\\lang\\english\\mfxkit.chm");
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
