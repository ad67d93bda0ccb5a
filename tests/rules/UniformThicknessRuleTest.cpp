#include "UniformThicknessRule.h"

#include "RuleTestSupport.h"

namespace {

const CString kByMaterial = L"Limites d'épaisseur de paroi par matériau";
const CString kLow = L"Épaisseur de paroi minimale\u00a0: ", kHigh = L"Épaisseur de paroi maximale\u00a0: ";

struct UniformThicknessRuleTest : RuleTest {
    static std::string Limits(const std::string& minimum, const std::string& maximum) {
        return Parameter(10067, minimum, 7) + Parameter(10068, maximum);
    }
    // Its name is its status.
    static std::string Material(const std::string& status, const std::string& limits = "") {
        return "<Constraint Type='t' Value='" + status + "' Status='" + status + "'>" + limits +
               "</Constraint>";
    }
    struct Rule : CMFXUniformThicknessRule {
        Rule(const NodePtr& p) : CMFXUniformThicknessRule(L"P", L"M", CategorySandCasting, 1, p.get()) {}
        Rule& Read(const NodePtr& p) { return PopulateFromXML(p.get()), *this; }
    };
};

}  // namespace

TEST_F(UniformThicknessRuleTest, LegacyMaterialTableSurvivesPopulating) {
    // The last table and the last switch count.
    const std::string table =
        "<Parameter Type='10070'><Value Attribute1='Old'/></Parameter>"
        "<Parameter Type='10070'><Value Attribute1='Iron' Attribute2='3.18' "
        "Attribute3='5 mm'/><Value Attribute1='S'/></Parameter>";
    for (const std::string state : {"0.9999995", "1.0000005", "0.99", "1.01", ""}) {
        const bool bOn = state.ends_with('5');
        const std::string switches = Parameter(10071, bOn ? "0" : "1") + Parameter(10071, state);
        const NodePtr pRecord = Record((state.empty() ? "" : switches) + table + Limits("4", "12"));
        const CString strMaterials = bOn ? L" Iron{ 10067: 3.18 10068: 5 } S{ 10067: 0 10068: 0 }"
                                         : L" -Iron{ -10067: 3.18 -10068: 5 } -S{ -10067: 0 -10068: 0 }";
        Rule rule(pRecord);
        EXPECT_STREQ(Values(rule), L" 10067: 6 10068: 16" + strMaterials) << state;
        EXPECT_STREQ(rule.m_strSummary, kLow + L"6.0 mm  " + kHigh + L"16.0 mm");
        EXPECT_STREQ(Values(rule.Read(pRecord)), L" 10067: 4 10068: 12" + strMaterials) << state;
        EXPECT_EQ(rule.m_strSummary == kByMaterial, bOn);
    }
}

TEST_F(UniformThicknessRuleTest, ConstraintsOfARecord) {
    const NodePtr pRecord = Record(Material("1", Limits("1", "2")) + Material("0") + Material("01"));
    Rule rule(pRecord);
    const CString strFilled = L" 1{ 10067: 1 10068: 2 } -0{ -10067: -10068: } -01{ -10067: -10068: }";
    EXPECT_EQ(rule.m_constraintArray[0]->m_type, ConstraintByMaterial);
    EXPECT_STREQ(Kinds(rule.m_constraintArray[0]->m_paramArray), L" 10067=4/7/1/0 10068=4/8/1/0");
    EXPECT_STREQ(Values(rule.Read(pRecord)), L" 10067: 10068:" + strFilled);
    rule.m_strSummary = L"old";
    const NodePtr pWritten(rule.BuildXMLNode());
    EXPECT_STREQ(rule.m_strSummary, kByMaterial);
    EXPECT_STREQ(Values(Rule(pWritten).Read(pWritten)), Values(rule));
    // Another number of constraints: the rule's own keep their values.
    EXPECT_STREQ(Values(rule.Read(Record(Limits("4", "5") + Material("1")))),
                 L" 10067: 4 10068: 5" + strFilled);
    EXPECT_STREQ(Values(Rule(Record("<Constraint Value='a' Status='1'/><Constraint Type='1' Status='1'/>"
                                    "<Constraint Type='1' Value='a'/>"))),
                 L" 10067: 6 10068: 16");
}

TEST_F(UniformThicknessRuleTest, SummaryOfWhatIsOn) {
    const CString strLow = kLow + L"5.0 in  ", strHigh = kHigh + L"9.5 in",
                  strBare = L" minimale\u00a0: 5.0 in   maximale\u00a0: 9.5 in";
    const struct {
        std::string content;
        CString strValues, strSummary;
    } kCases[] = {
        // A switch before the limits: exactly 1 is on.
        {Limits("1 5", "0 9.5"), L" 10067: 5 -10068: 9.5", strLow},
        {Limits("0.9999999 5", "1 9.5 7"), L" -10067: 5 10068: 9.5 7", strHigh},
        {Limits("5 0 0 0", "2 9.5"), L" 10067: 5 0 0 0 -10068: 9.5", strLow},
        {Parameter(10067, "5", 8) + Parameter(10068, "9.5", 7), L" 10067: 5 10068: 9.5", strBare},
        // Of the materials the first one decides.
        {Limits("5", "9.5") + Material("0") + Material("1"),
         L" 10067: 5 10068: 9.5 -0{ -10067: -10068: } 1{ 10067: 10068: }", strLow + strHigh},
    };
    for (const auto& [content, strValues, strSummary] : kCases) {
        const NodePtr pRecord = Record(content, "Unit='3'");
        Rule rule(pRecord);
        EXPECT_STREQ(Values(rule.Read(pRecord)), strValues);
        EXPECT_STREQ(rule.m_strSummary, strSummary);
    }
}

TEST_F(UniformThicknessRuleTest, UnitIsOneCharacterOfTheParent) {
    Rule rule(nullptr);
    const std::pair<const char*, int> kCases[] = {{"Unit='9'", 9},  {"Unit='10'", 1}, {"Unit='x3'", 0},
                                                  {"Unit='-1'", 0}, {"Unit=''", 0},   {"Other='3'", 0}};
    for (const auto& [attribute, nUnit] : kCases)
        EXPECT_EQ(rule.Read(Record("", attribute)).m_nLengthUnit, nUnit) << attribute;
    rule.m_nLengthUnit = 7;
    ASSERT_TRUE(m_document.Parse("<Rule Unit='3'/>").bOk);
    EXPECT_EQ(rule.Read(NodePtr(m_document.GetRootNode())).m_nLengthUnit, 0);
}
