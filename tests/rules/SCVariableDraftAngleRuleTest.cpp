#include "SCVariableDraftAngleRule.h"

#include "RuleTestSupport.h"
#include "UnitLabels.h"
#include "ValueText.h"

#include <set>

namespace {

constexpr UnitPair kMetric{1, 0}, kInch{3, 0}, kMinute{1, 3}, kInchMinute{3, 3};

struct VariableDraftAngleRuleTest : RuleTest {
    static MfxArray<MfxTableRow>& Rows(CMfxRule& rule) {
        return rule.m_paramArray[0].m_pStorage->GetValues<MfxTableRow>();
    }

    static CString Table(CMfxRule& rule) {
        CString strTable;
        for (const MfxTableRow& row : Rows(rule)) strTable += ToText(row) + L"|";
        return strTable;
    }

    CMFXSCVariableDraftAngleRule m_rule;
};

}  // namespace

TEST_F(VariableDraftAngleRuleTest, ConvertsLengthsAndAnglesApart) {
    const struct {
        UnitPair from, to;
        const wchar_t *pszBefore, *pszAfter;
    } cases[] = {
        {kMetric, kInch, L"50.8;101;1.50;.75;a;", L"2.0;3.976378;1.50;.75;a;|"},
        {kInch, kMetric, L"2;4 in;3;;1;", L"50.8;101.6;3;;1;|"},
        {kMetric, kMinute, L"0;25.40;3;.75;a;", L"0;25.40;180.0;45.0;0.0;|"},
        {kInchMinute, kMetric, L";a;90;6;1;", L"0.0;0.0;1.5;0.1;0.016667;|"},
        // A length without upper limit stays; one that differs from it by more than a millionth does not.
        {kMetric, kInch, L"1000000000.0000005;1000000000;1;1;1;", L"1000000000.0;1000000000.0;1;1;1;|"},
        {kMetric, kInch, L"1000000000.00001;25.4;1;1;1;", L"39370078.740158;1.0;1;1;1;|"},
        {kMetric, kMinute, L"1000000000;1;1000000000;1;1;", L"1000000000;1;60000000000.0;60.0;60.0;|"},
        // Too few cells, too many.
        {kMetric, kInchMinute, L"25.4;25.4;1;", L"25.4;25.4;1;|"},
        {kMetric, kInchMinute, L"25.4;25.4;1;1;1;1;", L"1.0;1.0;60.0;60.0;60.0;1;|"},
    };
    for (const auto& test : cases) {
        Rows(m_rule).RemoveAll();
        Rows(m_rule).Add({});  // a row that can't be converted does not end the conversion
        Rows(m_rule).Add({});
        FromText(test.pszBefore, Rows(m_rule)[1]);
        m_rule.ConvertUnits(test.from, test.to);
        EXPECT_STREQ(Table(m_rule), CString(L"|") + test.pszAfter);
        EXPECT_EQ(Units(m_rule), test.to);
    }
}

TEST_F(VariableDraftAngleRuleTest, SameUnitsOrNoParameterConvertNothing) {
    const auto before = Table(m_rule);
    m_rule.ConvertUnits(kInchMinute, kInchMinute);
    EXPECT_STREQ(Table(m_rule), before);
    Remove(m_rule.m_paramArray, 0);
    m_rule.ConvertUnits(kMetric, kInchMinute);
    EXPECT_EQ(Units(m_rule), kMetric);
}

TEST_F(VariableDraftAngleRuleTest, ReloadsItsSummaryWhenItHasItsTable) {
    const std::wstring summary = m_app.Text(29193);
    m_rule.m_strSummary = L"old";
    const NodePtr pRecord(m_rule.BuildXMLNode());
    CString strWritten;
    pRecord->GetAttributeValue(L"Summary", strWritten);
    EXPECT_STREQ(strWritten, L"old");
    EXPECT_EQ(m_rule.m_strSummary.GetString(), summary);
    for (const bool bTable : {true, false}) {
        if (!bTable) Remove(m_rule.m_paramArray, 0);
        m_rule.m_strSummary = L"old";
        m_rule.PopulateFromXML(pRecord.get());
        EXPECT_EQ(m_rule.m_strSummary.GetString(), bTable ? summary : L"old");
    }
}

TEST_F(VariableDraftAngleRuleTest, UnitLabelsAreDistinct) {
    std::set<CString> labels;
    for (const int nCode : {1, 2, 3, 4, 6, 7, 8, 9, 10}) labels.insert(GetLengthUnitLabel(nCode));
    for (const int nCode : {0, 1, 2, 3}) labels.insert(GetAngleUnitLabel(nCode));
    EXPECT_EQ(labels.size(), 9u + 4u);
    EXPECT_STREQ(GetLengthUnitLabel(0), GetLengthUnitLabel(1)) << "the model default is the millimetre";
    for (const CString& strNone : {GetLengthUnitLabel(-1), GetLengthUnitLabel(5), GetLengthUnitLabel(11),
                                   GetAngleUnitLabel(-1), GetAngleUnitLabel(4)})
        EXPECT_STREQ(strNone, L"");
}
