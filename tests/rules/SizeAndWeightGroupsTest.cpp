#include "SizeAndWeightGroups.h"

#include "MFXUnitConvertor.h"
#include "RuleTestSupport.h"
#include "WTBasedOnCastSizeAndWeightRule.h"

#include <gmock/gmock.h>

using namespace testing;

namespace {

using Flaw = SizeAndWeightFlaw;
using Naming = SizeAndWeightGroups::Naming;
using Rows = std::vector<BandTexts>;
constexpr double No = kValueNotGiven;

const BandTexts kEmptyRow;
const BandTexts kRow{L"0.0", L"10.0", L"", L"", L"3.0"};

struct SizeAndWeightGroupsTest : RuleTest {
    std::vector<CString> Names() const {
        std::vector<CString> names;
        for (const auto& [strName, bands] : m_groups.GetAll()) names.push_back(strName);
        return names;
    }

    CMFXWTBasedOnCastSizeAndWeightRule m_rule{nullptr};
    SizeAndWeightGroups m_groups;
};

}  // namespace

TEST_F(SizeAndWeightGroupsTest, LoadsWhatTheGridCanShow) {
    m_rule.AddGroup(L"Zinc", true, {{0, 10, No, No, 3}, {No, No, No, No, No}, {10, 20, -5, No, 4}});
    m_rule.AddGroup(L"Iron", true, {{No, No, 0.5, 1, 3}, {No, 5, No, 2, 3}, {No, No, 1, 2, 3}});
    m_rule.AddGroup(L"Steel", false, {});
    for (const LPCWSTR pszName : {L"", L"No list"}) m_rule.AddGroup(pszName, true, {});
    Remove(m_rule.m_constraintArray[4]->m_paramArray, 4);
    EXPECT_TRUE(m_groups.Load(m_rule));
    EXPECT_THAT(m_groups.GetLoadedNames(), ElementsAre(L"Zinc", L"Iron", L"Steel"));
    EXPECT_THAT(m_groups.GetGroupsWithoutBands(), ElementsAre(L"Steel"));
    EXPECT_EQ(m_groups.GetMassUnit(), MassKilogram);
    EXPECT_STREQ(m_groups.GetCurrent(), L"Iron") << "the last active one";
    EXPECT_THAT(m_groups.GetRows(), ElementsAre(BandTexts{L"", L"", L"0.5", L"1.0", L"3.0"}, kEmptyRow,
                                                BandTexts{L"", L"", L"1.0", L"2.0", L"3.0"}));
    m_groups.SetCurrent(L"Zinc");
    EXPECT_THAT(m_groups.GetRows(), ElementsAre(kRow, BandTexts{L"10.0", L"20.0", L"", L"", L"4.0"}));
    Remove(m_rule.m_paramArray, 0);
    EXPECT_FALSE(SizeAndWeightGroups().Load(m_rule)) << "no mass unit";
}

TEST_F(SizeAndWeightGroupsTest, KeepsTheDigitsOfCellsThatWereNotChanged) {
    m_rule.AddGroup(L"Steel", true, {{0.12345678, 10, 0.12345678, No, 3}});
    m_groups.Load(m_rule);
    Rows rows = m_groups.GetRows();
    EXPECT_STREQ(rows[0][BandCell::SizeMin], L"0.123457");
    rows[0][BandCell::SizeMax] = L"";
    rows[0][BandCell::Thickness] = L"1.2.3";
    m_groups.TakeRows(rows);
    m_groups.Store(m_rule);
    EXPECT_THAT(ReadBands(*m_rule.m_constraintArray[0]),
                ElementsAre(CastSizeAndWeightBand{0.12345678, No, 0.12345678, No, 1.2}));
}

TEST_F(SizeAndWeightGroupsTest, ChangingTheUnitKeepsRowsThatAreNoBandsYet) {
    m_rule.AddGroup(L"Steel", true, {});
    m_groups.Load(m_rule);
    const BandTexts unfinished{L"", L"5.0", L"", L"2.0", L""};
    m_groups.TakeRows(Rows{kEmptyRow, unfinished});
    m_groups.ChangeMassUnit(MassGram);
    EXPECT_THAT(m_groups.GetRows(), ElementsAre(kEmptyRow, BandTexts{L"", L"5.0", L"", L"2000.0", L""}));
    EXPECT_THAT(m_groups.GetAll().at(L"Steel"), IsEmpty());
}

TEST_F(SizeAndWeightGroupsTest, RowsThatAreBegunAreNoBandsWhileTyping) {
    m_groups.TakeRows(Rows{kRow});
    EXPECT_THAT(Names(), IsEmpty()) << "no group is current";
    m_groups.NameGroup(L"Steel", {});
    EXPECT_EQ(m_groups.Check().flaw, Flaw::None) << "an empty group may be left";
    m_groups.TakeRows(Rows{kRow});
    EXPECT_EQ(m_groups.TakeRowsWhileTyping(Rows{kRow, {L"10"}}).flaw, Flaw::IncompleteWhileTyping);
    EXPECT_EQ(m_groups.GetAll().at(L"Steel").size(), 1u);
    EXPECT_EQ(m_groups.Check().flaw, Flaw::SizeIncomplete);
}

TEST_F(SizeAndWeightGroupsTest, NamesAreComparedAsAWhole) {
    EXPECT_EQ(m_groups.NameGroup(L"", {}), Naming::Ignored);
    for (const LPCWSTR pszName : {L"Steel", L"Steel 2"})
        EXPECT_EQ(m_groups.NameGroup(pszName, {L"Steel", L"Steel 2"}), Naming::Added);
    EXPECT_STREQ(m_groups.FindUnlisted({L"Steel 2", L"Iron"}), L"Steel");
    EXPECT_TRUE(m_groups.EraseUnlisted({L"Steel", L"Steel 22"}));
    EXPECT_STREQ(m_groups.GetCurrent(), L"") << "it was erased";
    EXPECT_FALSE(m_groups.EraseUnlisted({L"Steel"}));
    EXPECT_THAT(Names(), ElementsAre(L"Steel"));
}
