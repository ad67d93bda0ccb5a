#include "DialogTest.h"
#include "GridUser.h"
#include "MFXUnitConvertor.h"
#include "MfxXMLDocument.h"
#include "RuleParameters.h"
#include "WTBasedOnCastSizeAndWeightRule.h"
#include "resource.h"

#include <gmock/gmock.h>
#include <dbghelp.h>

#include <array>
#include <string_view>

using testing::ElementsAre;
using testing::Pair;

namespace {

constexpr double No = kValueNotGiven;

using Texts = std::array<LPCWSTR, BandCell::Count>;

// Other bytes at a place of the process's memory, for the scope.
class MemoryPatch {
  public:
    MemoryPatch(void* pPlace, std::string_view bytes) : m_pPlace(static_cast<char*>(pPlace)), m_bytes(bytes) {
        Swap();
    }
    ~MemoryPatch() { Swap(); }
    MemoryPatch(const MemoryPatch&) = delete;
    MemoryPatch& operator=(const MemoryPatch&) = delete;

  private:
    void Swap() {
        DWORD dwProtection = 0;
        VirtualProtect(m_pPlace, m_bytes.size(), PAGE_EXECUTE_READWRITE, &dwProtection);
        std::swap_ranges(m_bytes.begin(), m_bytes.end(), m_pPlace);
        VirtualProtect(m_pPlace, m_bytes.size(), dwProtection, &dwProtection);
    }

    char* const m_pPlace;
    std::string m_bytes;
};

struct WTBasedOnSizeAndWeightDlgTest : DialogTest {
    WTBasedOnSizeAndWeightDlgTest() : DialogTest(L"english") {
        AddGroup(L"Zinc", {{0, 10, No, No, 3}, {10, 20, No, No, 4}});
        AddGroup(L"Steel", {{No, No, 1, 2, 5}});
    }

    void AddGroup(const CString& strName, const Bands& bands) { AddGroupTo(m_rule, strName, bands); }
    std::vector<std::pair<CString, Bands>> Stored() const {
        std::vector<std::pair<CString, Bands>> groups;
        for (const CMFXConstraint* pGroup : m_rule.m_constraintArray)
            groups.emplace_back(pGroup->m_strName, ReadBands(*pGroup));
        return groups;
    }
    CString ActiveGroups() const {
        CString strNames;
        for (const CMFXConstraint* pGroup : m_rule.m_constraintArray)
            if (pGroup->m_bActive) strNames += pGroup->m_strName;
        return strNames;
    }
    CString MassUnit() const { return m_rule.FindParameterInArray(kMassUnitId)->GetValues<CString>()[0]; }

    struct Page {
        DialogUser& user;
        GridUser groups{user, IDC_SIZE_WEIGHT_GROUPS}, bands{user, IDC_SIZE_WEIGHT_BANDS};

        CString CurrentGroup() const { return user.TextOf(IDC_SIZE_WEIGHT_CURRENT_GROUP); }
        bool CanOk() const { return IsWindowEnabled(user.Control(IDOK)); }
        void SelectUnit(int nControlId, int nIndex) {
            SendMessageW(user.Control(nControlId), CB_SETCURSEL, static_cast<WPARAM>(nIndex), 0);
            SendMessageW(user.Window(), WM_COMMAND, MAKEWPARAM(nControlId, CBN_SELCHANGE),
                         reinterpret_cast<LPARAM>(user.Control(nControlId)));
        }
    };
    void Open(const std::function<void(Page&)>& act) {
        Configure(m_rule, [&](DialogUser& user) {
            Page page{user};
            act(page);
        });
    }
    // Opens the dialog when something is missing.
    void ExpectRefusal(const CString& strWhy) {
        SCOPED_TRACE(strWhy.GetString());
        const auto before = Stored();
        m_boxes.Expect(L"This rule can't be edited: " + strWhy, MB_ICONEXCLAMATION);
        Open([&](Page& page) {
            EXPECT_FALSE(page.CanOk());
            SendMessageW(page.user.Window(), WM_COMMAND, IDOK, 0);
            page.SelectUnit(IDC_SIZE_WEIGHT_MASS_UNIT, 0);
            page.user.ClickOn(IDC_SIZE_WEIGHT_GROUPS);
            EXPECT_TRUE(page.user.IsOpen());
            page.user.Press(VK_ESCAPE);
            EXPECT_FALSE(page.user.IsOpen());
        });
        EXPECT_EQ(Stored(), before);
    }

    static void* GetCollectorFunction() {
        const FARPROC function = GetProcAddress(GetModuleHandleW(L"MfxKitu.dll"),
                                                "_ZNK6mfx_db13MFXDataHelpercvP18IDatabaseCollectorEv");
        return reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(function));
    }
    static void* GetDatabaseExportName() {
        auto* const pImage = reinterpret_cast<char*>(GetModuleHandleW(L"MFXDatabaseu.dll"));
        const std::string_view image(pImage, ImageNtHeader(pImage)->OptionalHeader.SizeOfImage);
        return pImage + image.find("GetModuleName");
    }

    CMfxRule& m_rule = Rule(kSizeAndWeightRuleId);
};

}  // namespace

TEST_F(WTBasedOnSizeAndWeightDlgTest, EditsGroupsAndBands) {
    AddGroup(kDefaultGroup, {{0, 1, No, No, 1}});
    Open([&](Page& page) {
        EXPECT_STREQ(page.user.TextOf(IDC_SIZE_WEIGHT_DATABASE), L"Material Database");
        EXPECT_STREQ(page.CurrentGroup(), kDefaultGroup) << "the last active one";
        EXPECT_EQ(page.groups.SelectedRow(), 2);
        EXPECT_STREQ(page.bands.Cell(0, 2), L"1.0");
        page.groups.Click(0, 0);
        page.groups.Click(2, 0);  // the default group can't be selected
        EXPECT_STREQ(page.CurrentGroup(), L"Zinc");
        page.bands.Type(1, 2, L"25");
        page.user.Press(VK_DOWN);
        page.bands.Type(2, 1, L"25");
        for (const LPCWSTR pszText : {L"0", L"", L"", L"4.5"}) {
            page.user.Press(VK_TAB);
            page.user.Type(pszText);
        }
        page.user.Press(VK_TAB);
        EXPECT_EQ(GetFocus(), page.user.Control(IDOK)) << "behind the last column";
        page.groups.Choose(5, L"Iron");
        EXPECT_STREQ(page.CurrentGroup(), L"Iron");
        EXPECT_STREQ(page.bands.Cell(0, 1), L"");
        page.bands.Type(0, 3, L"0.5");
        ListView_SetColumnWidth(page.user.Control(IDC_SIZE_WEIGHT_BANDS), 1, 500);
        for (const LPCWSTR pszText : {L"1.5", L"6"}) {
            page.user.Press(VK_TAB);
            page.user.Type(pszText);
        }
        page.bands.ExpectCursorIn(0, 5);
        page.user.Press(VK_TAB, VK_SHIFT);
        page.bands.ExpectCursorIn(0, 4);
        page.SelectUnit(IDC_SIZE_WEIGHT_LENGTH_UNIT, LengthInch - LengthMillimetre);
        page.user.ClickOn(IDOK);
        EXPECT_FALSE(page.user.IsOpen());
    });
    EXPECT_THAT(
        Stored(),
        ElementsAre(Pair(L"Iron", Bands{{No, No, 0.5, 1.5, 6}}), Pair(L"Steel", Bands{{No, No, 1, 2, 5}}),
                    Pair(L"Zinc", Bands{{0, 10, No, No, 3}, {10, 25, No, No, 4}, {25, 0, No, No, 4.5}})));
    EXPECT_STREQ(ActiveGroups(), L"Iron");
    EXPECT_EQ(m_rule.m_nLengthUnit, LengthInch);
    Open([](Page& page) {
        EXPECT_STREQ(page.CurrentGroup(), L"Iron");
        page.groups.Click(1, 0);
        page.user.Press(VK_ESCAPE);
    });
    EXPECT_STREQ(ActiveGroups(), L"Iron") << "nothing is stored by Cancel";
}

TEST_F(WTBasedOnSizeAndWeightDlgTest, RefusesBandsAndShowsWhere) {
    const CString strRow = L"Row 3: the upper ", strLarger = L" must be larger than the lower one.";
    const CString strMissing = L" is left out, or has a zero where a value is needed.";
    const CString strSizes = L"The lower size must be 20.0 mm, where the sizes before end. See row 3.";
    const CString strWeights = L"The lower weight must be 3.0 kg, where the weights before end. See row 3.";
    const CString strEnter = L"Complete the ", strInRow = L" in row 3.";
    const struct {
        int nRow;  // the row that is written, from 0
        Texts texts;
        CString strMessage;  // empty: the bands are stored
        int nFaultRow, nFaultCol;
        bool bAtOnce = false;  // shown after the edit, too
    } kCases[] = {
        {2, {L"20", L"20", L"3", L"4", L"5"}, strRow + L"size" + strLarger, 2, 2, true},
        {2, {L"20", L"30", L"0", L"4", L"5"}, L"Row 3" + strMissing, 2, 3},
        {3, {L"20", L"30", L"3", L"4", L"5"}, L"Row 3" + strMissing, 2, 1},
        {1, {L"10", L"0", L"2", L"3", L"0"}, L"Row 2" + strMissing, 1, 5},
        {0, {L"0", L"0", L"1", L"2", L"3"}, L"Row 1" + strMissing, 0, 2},
        {2, {L"20.00001", L"30", L"3", L"4", L"5"}, strSizes, 2, 1, true},
        {2, {L"20", L"30", L"4", L"3", L"5"}, strRow + L"weight" + strLarger, 2, 4, true},
        {2, {L"20", L"30", L"3.1", L"4", L"5"}, strWeights, 2, 3, true},
        {2, {L"20", L"", L"3", L"4", L"5"}, strEnter + L"cast size" + strInRow, 2, 2},
        {2, {L"20", L"30", L"", L"4", L"5"}, strEnter + L"cast weight" + strInRow, 2, 3},
        {2, {L"20", L"", L"3", L"", L"5"}, strEnter + L"cast size and weight" + strInRow, 2, 2},
        {2, {L"20", L"30", L"3", L"4", L""}, strEnter + L"thickness" + strInRow, 2, 5},
        {2, {L"20.0000005", L"0", L"3", L"4", L"5"}, L"", 0, 0},
    };
    for (const auto& test : kCases) {
        SCOPED_TRACE(test.strMessage.GetString());
        m_rule.ClearConstraints();
        AddGroup(L"Steel", {{0, 10, 1, 2, 3}, {10, 20, 2, 3, 4}});
        Open([&](Page& page) {
            for (int nCol = 1; nCol <= 5; ++nCol)
                page.bands.SetCell(test.nRow, nCol, test.texts[static_cast<std::size_t>(nCol - 1)]);
            if (test.bAtOnce) {
                m_boxes.Expect(test.strMessage, MB_ICONINFORMATION);
                page.bands.Click(test.nFaultRow, test.nFaultCol);
                page.user.Press(VK_TAB);
                page.bands.ExpectCursorIn(test.nFaultRow, test.nFaultCol);
            }
            if (!test.strMessage.IsEmpty()) m_boxes.Expect(test.strMessage, MB_ICONINFORMATION);
            page.user.ClickOn(IDOK);
            m_boxes.Verify();
            EXPECT_EQ(page.user.IsOpen(), !test.strMessage.IsEmpty());
            if (!page.user.IsOpen()) return;
            EXPECT_STREQ(m_boxes.m_strCaption, L"MfxKit");
            page.bands.ExpectCursorIn(test.nFaultRow, test.nFaultCol);
            page.user.ClickOn(IDCANCEL);
        });
    }
    EXPECT_EQ(Stored().back().second.back(), (CastSizeAndWeightBand{20.0000005, 0, 3, 4, 5}));
}

TEST_F(WTBasedOnSizeAndWeightDlgTest, ChecksTheGroupsThatWereNotShown) {
    AddGroup(L"Iron", {{0, 10, No, No, 3}, {12, 20, No, No, 4}});
    AddGroup(L"Zinc alloys", {{0, 10, No, No, 3}});
    AddGroup(L"Aluminium", {{0, 10, No, No, 3}, {No, 20, No, No, 4}});  // what has no lower bound is no band
    Open([&](Page& page) {
        m_boxes.Expect(L"The lower size must be 10.0 mm, where the sizes before end. See row 2.",
                       MB_ICONINFORMATION);
        page.user.ClickOn(IDOK);
        EXPECT_STREQ(page.CurrentGroup(), L"Iron");
        page.bands.ExpectCursorIn(1, 1);
        page.user.ClickOn(IDCANCEL);
    });
}

TEST_F(WTBasedOnSizeAndWeightDlgTest, NamesRenamesAndDeletesGroups) {
    Open([&](Page& page) {
        page.bands.SetCell(0, 3, L"3");
        const std::function<void()> kLeave[] = {[&] { page.groups.Click(0, 0); },
                                                [&] { page.groups.Choose(5, L"Iron"); },
                                                [&] {
                                                    page.groups.OpenList(5);
                                                    page.groups.Select(L"Iron");
                                                    page.groups.Click(0, 0);
                                                }};
        for (const auto& leave : kLeave) {
            m_boxes.Expect(L"Row 1: the upper weight must be larger than the lower one.", MB_ICONINFORMATION);
            leave();
            m_boxes.Verify();
            EXPECT_STREQ(page.CurrentGroup(), L"Steel");
            EXPECT_STREQ(page.groups.Cell(5, 0), L"");
            page.bands.ExpectCursorIn(0, 4);
        }
        EXPECT_EQ(page.groups.SelectedRow(), 1) << "the group that is shown";
        page.bands.SetCell(0, 3, L"1");
        m_boxes.Expect(L"The group Steel is there already.", MB_ICONEXCLAMATION);
        page.groups.Choose(1, L"Steel");
        m_boxes.Expect(L"Steel is in the table already.");
        page.groups.Choose(5, L"Steel");
        page.groups.Choose(1, L"Iron");
        EXPECT_STREQ(page.CurrentGroup(), L"Iron");
        EXPECT_STREQ(page.bands.Cell(0, 4), L"2.0") << "renamed, with its bands";
        page.groups.Choose(5, L"Steel");
        EXPECT_TRUE(page.CanOk());
        m_boxes.Expect(L"These material groups have no rows. Enter rows, or delete the groups.\r\n\r\nSteel",
                       MB_ICONINFORMATION);
        page.user.ClickOn(IDOK);
        page.groups.Click(5, 0);
        page.user.Press(VK_DELETE);
        EXPECT_STREQ(page.groups.Cell(0, 0), L"Iron") << "in the order of their names";
        EXPECT_STREQ(page.groups.Cell(2, 0), L"");
        EXPECT_STREQ(page.CurrentGroup(), L"(no group selected)");
        EXPECT_FALSE(IsWindowEnabled(page.user.Control(IDC_SIZE_WEIGHT_BANDS)));
        page.groups.OpenList(0);
        page.groups.Select(L"Steel");
        page.user.ClickOn(IDOK);
    });
    EXPECT_THAT(Stored(), ElementsAre(Pair(L"Steel", Bands{{No, No, 1, 2, 5}}),
                                      Pair(L"Zinc", Bands{{0, 10, No, No, 3}, {10, 20, No, No, 4}})));
    EXPECT_STREQ(ActiveGroups(), L"Steel") << "the choice that was still open";
}

TEST_F(WTBasedOnSizeAndWeightDlgTest, SaysWhatOkNeeds) {
    m_rule.ClearConstraints();
    Open([&](Page& page) {
        const HWND hHint = page.user.Control(IDC_SIZE_WEIGHT_OK_HINT);
        EXPECT_TRUE(IsWindowVisible(hHint));
        m_boxes.Expect(
            L"There is nothing to store. Enter at least one row with two sizes or two weights, and "
            L"a thickness.",
            MB_ICONINFORMATION);
        SendMessageW(page.user.Window(), WM_COMMAND, IDOK, 0);
        page.groups.Choose(0, L"Zinc");
        page.bands.SetCell(0, 1, L"0");
        page.bands.SetCell(0, 2, L"5");
        EXPECT_FALSE(page.CanOk());
        page.bands.Type(0, 5, L"1");
        EXPECT_TRUE(page.CanOk()) << "while it is typed";
        page.user.Press(VK_ESCAPE);
        EXPECT_FALSE(page.CanOk());
        page.bands.Type(0, 5, L"1");
        page.user.ClickOn(IDC_EDIT_MATERIALS);
        page.user.InNextDialog([&] { page.user.Press(VK_ESCAPE); });
        EXPECT_TRUE(page.CanOk());
        EXPECT_FALSE(IsWindowVisible(hHint));
        page.bands.Click(0, 0);
        page.user.Press(VK_DELETE);
        EXPECT_FALSE(page.CanOk());
        page.user.ClickOn(IDCANCEL);
    });
}

TEST_F(WTBasedOnSizeAndWeightDlgTest, ChangesTheMassUnit) {
    Open([&](Page& page) {
        EXPECT_STREQ(page.user.TextOf(IDC_SIZE_WEIGHT_MASS_CAPTION), L"Weights in kg");
        page.bands.Type(0, 4, L"1.2345678");
        page.SelectUnit(IDC_SIZE_WEIGHT_MASS_UNIT, MassTonne - MassMilligram);
        EXPECT_STREQ(page.user.TextOf(IDC_SIZE_WEIGHT_MASS_CAPTION), L"Weights in t");
        EXPECT_STREQ(page.bands.Cell(0, 4), L"0.001235") << "what was being typed counts";
        EXPECT_STREQ(page.bands.Cell(0, 5), L"5.0");
        page.SelectUnit(IDC_SIZE_WEIGHT_MASS_UNIT, MassGram - MassMilligram);
        page.user.ClickOn(IDOK);
    });
    EXPECT_STREQ(MassUnit(), L"g");
    const CastSizeAndWeightBand steel = Stored()[0].second[0];
    EXPECT_NEAR(steel.weightMin, 1000, 1e-9);
    EXPECT_NEAR(steel.weightMax, 1234.5678, 1e-9) << "no digit was lost on the way";
    EXPECT_EQ(Stored()[1].second[0], (CastSizeAndWeightBand{0, 10, No, No, 3}));
}

TEST_F(WTBasedOnSizeAndWeightDlgTest, WithoutAPartOnlyCancelWorks) {
    {
        const MemoryPatch patch(GetDatabaseExportName(), "X");
        ExpectRefusal(L"the material database (MFXDatabaseu.dll) does not belong to this version.");
    }
    {
        const MemoryPatch patch(GetCollectorFunction(), "\x31\xC0\xC3");  // xor eax, eax; ret
        ExpectRefusal(L"the material database offers no data.");
    }
    m_database.m_pLibrary.reset();
    ExpectRefusal(L"the material database (MFXDatabaseu.dll) is not loaded.");
    m_database.m_pLibrary.reset(LoadLibraryW(L"MFXDatabaseu.dll"));
    DeleteParameters(m_rule.m_paramArray);
    ExpectRefusal(L"its value or a part of the dialog is missing.");
}

TEST_F(WTBasedOnSizeAndWeightDlgTest, OffersTheGroupsOfTheDatabase) {
    for (const bool bAvailable : {true, false}) {
        m_database.m_bAvailable = bAvailable;
        Open([&](Page& page) {
            page.groups.DoubleClick(5, 0);
            EXPECT_EQ(page.groups.ChoiceCount(), bAvailable ? 3 : 12 + 2);
            page.user.ClickOn(IDCANCEL);
        });
    }
}

TEST_F(WTBasedOnSizeAndWeightDlgTest, OffersItsOwnGroupsAfterTheDatabaseWasEdited) {
    AddGroup(L"Titanium", {{0, 10, No, No, 3}});
    Open([&](Page& page) {
        page.user.ClickOn(IDC_EDIT_MATERIALS);
        page.user.InNextDialog([&] { page.user.Press(VK_ESCAPE); });
        page.groups.DoubleClick(2, 0);
        m_boxes.Expect(L"The group Titanium is there already.", MB_ICONEXCLAMATION);
        page.groups.Click(0, 0);
        EXPECT_STREQ(page.groups.Cell(2, 0), L"Titanium") << "another name must not take its place";
        page.user.ClickOn(IDCANCEL);
    });
}

TEST_F(WTBasedOnSizeAndWeightDlgTest, HoldsManyGroupsAndIsReadAgain) {
    Bands many;
    for (int i = 0; i < 200; ++i) many.push_back({i + 0.5, i + 1.5, No, No, 3});
    for (int i = 0; i < 48; ++i) AddGroup(L"Group " + CString(static_cast<wchar_t>(L'0' + i)), many);
    const auto before = Stored();
    Open([](Page& page) {
        EXPECT_STREQ(page.bands.Cell(199, 2), L"200.5");
        EXPECT_GT(page.bands.RowCount(), 200);
        page.groups.Click(0, 0);
        page.user.ClickOn(IDOK);
    });
    EXPECT_THAT(Stored(), testing::UnorderedElementsAreArray(before));
    MfxXMLDocument document;
    m_module.Call("SetXMLDoc", &document);
    const std::unique_ptr<MfxXMLNode> pRoot(document.CreateRootNode(L"R")), pRecord(m_rule.BuildXMLNode());
    pRoot->AppendNode(pRecord.get());
    const LoadedModule::RulePtr pAgain = m_module.GetRule(pRecord.get());
    ASSERT_TRUE(pAgain);
    using Rule = CMFXWTBasedOnCastSizeAndWeightRule;
    static_cast<Rule&>(*pAgain).m_nReloadMode = Rule::kRebuildConstraints;
    pAgain->PopulateFromXML(pRecord.get());
    Configure(*pAgain, [](DialogUser& user) {
        EXPECT_STREQ(user.TextOf(IDC_SIZE_WEIGHT_CURRENT_GROUP), L"Zinc") << "all are active: the last one";
        user.ClickOn(IDOK);
    });
    EXPECT_EQ(pAgain->m_constraintArray.GetCount(), 50);
    m_module.Call("SetXMLDoc", static_cast<MfxXMLDocument*>(nullptr));
}
