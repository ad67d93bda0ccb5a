#include "WTBasedOnCastSizeAndWeightRule.h"

#include "RuleTestSupport.h"

namespace {

struct SizeAndWeightRuleTest : RuleTest {
    using Rule = CMFXWTBasedOnCastSizeAndWeightRule;

    static std::string Group(const std::string& name, const std::string& value) {
        std::string group = "<Constraint Type='1' Value='" + name + "' Status='0'>";
        for (const int nId : {29119, 29120, 29121, 29122, 29118}) group += Parameter(nId, value);
        return group + "</Constraint>";
    }
    // The same as Values() shows it.
    static CString Shown(LPCWSTR pszName, LPCWSTR v) {
        CString strText;
        strText.Format(L" %s{ 29119:%s 29120:%s 29121:%s 29122:%s 29118:%s }", pszName, v, v, v, v, v);
        return strText;
    }
    CString Read(Rule& rule, const std::string& groups) {
        const std::string unit = "<Parameter Type='10165'><Value>lb</Value></Parameter>";
        rule.PopulateFromXML(Record(unit + groups).get());
        return Values(rule);
    }
};

}  // namespace

TEST_F(SizeAndWeightRuleTest, GroupsBecomeConstraints) {
    Rule rule(nullptr);
    rule.m_mapGroupRows = {{L"Steel", {}}, {L"Default", {{0, 10, 0.5, 1.5, 3}, {10, 20, -1, 2, 4}}}};
    rule.InitializeParameters();
    EXPECT_STREQ(Values(rule),
                 L" 10165: kg Default{ 29119: 0 10 29120: 10 20 29121: 0.5 -1 29122: 1.5 2 29118: "
                 L"3 4 }" +
                     Shown(L"-Steel", L""));
    EXPECT_EQ(rule.m_constraintArray[1]->m_type, ConstraintByMaterial);
    EXPECT_STREQ(Kinds(rule.m_constraintArray[1]->m_paramArray),
                 L" 29119=4/3/1/0 29120=4/8/1/0 29121=4/8/31/0 29122=4/8/31/0 29118=4/8/1/0");
}

TEST_F(SizeAndWeightRuleTest, OnlyReloadModeTakesTheRecordsConstraints) {
    Rule rule(Record(Group("S", "1") + "<Constraint Type='1' Value='no status'/>").get());
    EXPECT_STREQ(Values(rule), L" 10165: kg" + Shown(L"S", L""));
    EXPECT_STREQ(Read(rule, Group("T", "1 2")), L" 10165: lb" + Shown(L"S", L" 1 2"));
    const std::string two = Group("T", "4") + Group("U", "5");
    EXPECT_STREQ(Read(rule, two), L" 10165: lb" + Shown(L"S", L" 1 2"));
    EXPECT_STREQ(Read(rule, "<Constraint/>"), L" 10165: lb" + Shown(L"S", L""));
    const CString strTwo = Shown(L"T", L" 4") + Shown(L"U", L" 5");
    for (const bool bUnitMissing : {false, true}) {
        if (bUnitMissing) Remove(rule.m_paramArray, 0);
        rule.m_nReloadMode = 1;
        EXPECT_STREQ(Read(rule, two), L" 10165: lb" + strTwo);
    }
    // Without a mass unit nothing is read, so that nothing may be emptied for it.
    rule.m_nReloadMode = 0;
    Remove(rule.m_paramArray, 0);
    EXPECT_STREQ(Read(rule, Group("T", "6") + Group("U", "7")), strTwo);
}

TEST_F(SizeAndWeightRuleTest, ConvertsLengthsButNoWeightsAndNoMarkers) {
    Rule rule(nullptr);
    rule.m_mapGroupRows[L"Default"] = {
        {-1, 1e9, 25.4, 1, 25.4}, {-2e-6, -5e-7, -1, 1e9, -1}, {0, 254, 0, 1, 5}};
    rule.InitializeParameters();
    MfxParamArray& params = rule.m_constraintArray[0]->m_paramArray;
    rule.ConvertUnits({1, 0}, {3, 2});
    const CString strAfter = L" 29121: 25.4 -1 0 29122: 1 1e+09 1 29118: 1 -1 0.19685";
    EXPECT_STREQ(Values(params), L" 29119: -1 -2e-06 0 29120: 1e+09 -1.9685e-08 10" + strAfter);
    Remove(params, 1);
    rule.ConvertUnits({3, 2}, {1, 0});
    EXPECT_STREQ(Values(params), L" 29119: -1 -2e-06 0" + strAfter);
    EXPECT_EQ(Units(rule), UnitPair{});
}
