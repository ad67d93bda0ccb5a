#include "DialogTest.h"
#include "GridUser.h"
#include "MFXUnitConvertor.h"
#include "DraftTableCheck.h"
#include "resource.h"
#include "sheetreader/WorkbookMaker.h"
#include "support/TempFolder.h"

#include <afxcmn.h>
#include <gmock/gmock.h>

namespace {

using Rows = std::vector<MfxTableRow>;

constexpr int kImportKey = 1;
constexpr wchar_t kIncomplete[] =
    L" is not complete. Enter H1, H2, A1 and A2; none may be zero. Only the first H1 may be zero, and only "
    L"the "
    L"last H2 may be empty. Leave no empty row between.";

const Rows kDefaults = {{{L"0.0", L"25.4", L"3.0", L"3.0", L"1.5"}},
                        {{L"25.4", L"50.8", L"1.5", L"2.5", L"1.0"}},
                        {{L"50.8", L"101.0", L"1.0", L"1.5", L"1.0"}},
                        {{L"101.0", L"203.0", L"0.75", L"1.0", L"1.0"}}};

struct SCVariableDraftAngleDlgTest : DialogTest {
    SCVariableDraftAngleDlgTest() : DialogTest(L"english") {}

    void Open(const std::function<void(DialogUser&)>& act) { Configure(m_rule, act); }

    static GridUser Bands(DialogUser& user) { return {user, IDC_DRAFT_BANDS}; }
    Rows Stored() const { return {m_table.begin(), m_table.end()}; }
    CString Heading(const DialogUser& user) const {
        wchar_t szText[100] = L"";
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT;
        column.pszText = szText;
        column.cchTextMax = 100;
        ListView_GetColumn(user.Control(IDC_DRAFT_LEGEND), 1, &column);
        return szText;
    }

    const TempFolder m_folder;
    CMfxRule& m_rule = Rule(19040);
    MfxArray<MfxTableRow>& m_table =
        m_rule.FindParameterInArray(kDraftAngleTableId)->GetValues<MfxTableRow>();
};

}  // namespace

TEST_F(SCVariableDraftAngleDlgTest, EditsBandsByMouseAndKeys) {
    Open([&](DialogUser& user) {
        EXPECT_STREQ(Heading(user), L"Size (mm)");
        EXPECT_STREQ(Bands(user).Cell(3, 2), L"203") << "as it is stored";
        EXPECT_EQ(Bands(user).RowCount(), 200);
        Bands(user).Click(4, 1);
        for (const LPCWSTR pszText : {L"203", L"", L"0.5", L"0.75"}) {
            user.Type(pszText);
            user.Press(VK_TAB);
        }
        user.Press(VK_UP);  // out of the third angle, which is committed thereby
        user.Type(L"0.9");
        user.Press(VK_RETURN);
        EXPECT_TRUE(user.IsOpen()) << "Enter ends the editing";
        user.ClickOn(IDOK);
        EXPECT_FALSE(user.IsOpen());
    });
    Rows expected = kDefaults;
    expected[3].cells[DraftCell::ThirdAngle] = L"0.9";
    expected.push_back({{L"203.0", L"1000000000.0", L"0.5", L"0.75", L""}});
    EXPECT_EQ(Stored(), expected);
    Open([&](DialogUser& user) {
        EXPECT_STREQ(Bands(user).Cell(4, 2), L"") << "no upper limit";
        user.Press(VK_RETURN);
    });
    EXPECT_EQ(Stored(), expected);
}

TEST_F(SCVariableDraftAngleDlgTest, NeedsNoMouse) {
    Open([&](DialogUser& user) {
        SetFocus(user.Control(IDC_DRAFT_BANDS));
        user.Press(VK_F2);
        Bands(user).ExpectCursorIn(0, 1);
        user.Press(VK_RIGHT);
        user.Press(VK_DELETE);
        user.Type(L"25.4");
        for (int i = 0; i < 30; ++i) user.Press(VK_DOWN);
        user.Press(VK_RETURN);
        user.Press(VK_F2);
        Bands(user).ExpectCursorIn(30, 1);
        user.Press(L'U', VK_MENU);
        user.Press(VK_DOWN);
        EXPECT_STREQ(Heading(user), L"Size (cm)") << "the key is the unit's";
        user.Press(VK_ESCAPE);
        EXPECT_FALSE(user.IsOpen());
    });
    EXPECT_STREQ(m_table[0].cells[0], L"0.0");
    EXPECT_STREQ(m_table[3].cells[2], L".75") << "nothing was stored";
}

TEST_F(SCVariableDraftAngleDlgTest, RefusesATableAndShowsWhere) {
    const CString strIncomplete(kIncomplete);
    const struct {
        int nRow, nCol;  // the cell that is changed
        LPCWSTR pszText;
        CString strMessage;
        int nFaultRow, nFaultCol;
    } kCases[] = {
        {1, 3, L"", L"Row 2.0" + strIncomplete, 1, 3},
        {6, 1, L"5", L"Row 7.0" + strIncomplete, 6, 3},
        {0, 3, L"0", L"Row 1" + strIncomplete, 0, 3},
        {2, 2, L"50", L"Row 3: H2 must be larger than H1.", 2, 2},
        {3, 1, L"101.01", L"H1 must be 101.0, the H2 of the row before. See row 4.", 3, 1},
    };
    for (const auto& test : kCases)
        Open([&](DialogUser& user) {
            SCOPED_TRACE(test.strMessage.GetString());
            Bands(user).SetCell(test.nRow, test.nCol, test.pszText);
            SendMessageW(user.Control(IDC_DRAFT_LENGTH_UNIT), CB_SETCURSEL, 1, 0);
            m_boxes.Expect(test.strMessage, MB_ICONINFORMATION);
            user.ClickOn(IDOK);
            m_boxes.Verify();
            EXPECT_STREQ(m_boxes.m_strCaption, L"MfxKit");
            EXPECT_EQ(m_rule.m_nLengthUnit, LengthCentimetre) << "stored before";
            EXPECT_STREQ(Bands(user).Cell(test.nRow, test.nCol), test.pszText);
            Bands(user).ExpectCursorIn(test.nFaultRow, test.nFaultCol);
            user.ClickOn(IDCANCEL);
        });
    EXPECT_STREQ(m_table[3].cells[2], L".75") << "nothing was stored";
}

TEST_F(SCVariableDraftAngleDlgTest, DeletedRowsAreLeftOut) {
    Open([&](DialogUser& user) {
        SetFocus(user.Control(IDC_DRAFT_BANDS));
        ListView_SetItemState(user.Control(IDC_DRAFT_BANDS), 1, LVIS_SELECTED, LVIS_SELECTED);
        user.Press(VK_DELETE);
        m_boxes.Expect(CString(L"Row 2") + kIncomplete, MB_ICONINFORMATION);
        user.ClickOn(IDOK);
        ListView_SetItemState(user.Control(IDC_DRAFT_BANDS), -1, LVIS_SELECTED, LVIS_SELECTED);
        user.Press(VK_ESCAPE);
        user.ClickOn(IDC_DRAFT_LENGTH_UNIT);
        user.Press(VK_ESCAPE);
        SetFocus(user.Control(IDC_DRAFT_BANDS));
        ListView_SetItemState(user.Control(IDC_DRAFT_BANDS), -1, LVIS_SELECTED, LVIS_SELECTED);
        user.Press(VK_DELETE);
        m_boxes.Expect(L"The table has no values. Enter at least one row.", MB_ICONINFORMATION);
        user.ClickOn(IDOK);
        user.ClickOn(IDCANCEL);
    });
    EXPECT_EQ(m_table.GetCount(), 4);
}

TEST_F(SCVariableDraftAngleDlgTest, DropsOnlyAThirdAngleThatIsBeingEdited) {
    for (const bool bCommitted : {true, false}) {
        Open([&](DialogUser& user) {
            Bands(user).Click(0, 5);
            user.Type(L"2.5");
            if (bCommitted) user.Press(VK_RETURN);
            user.ClickOn(IDOK);
        });
        EXPECT_STREQ(m_table[0].cells[DraftCell::ThirdAngle], bCommitted ? L"2.5" : L"");
    }
}

TEST_F(SCVariableDraftAngleDlgTest, KeepsUnitsAndLongTables) {
    m_rule.m_nLengthUnit = LengthFoot;  // has no label of its own
    Open([&](DialogUser& user) {
        EXPECT_STREQ(Heading(user), L"Size (ft)");
        user.Enter(IDC_DRAFT_LENGTH_UNIT, L"i");
        EXPECT_STREQ(Heading(user), L"Size (in)");
        user.Press(VK_RETURN);
    });
    EXPECT_EQ(m_rule.m_nLengthUnit, LengthInch);
    EXPECT_EQ(Stored(), kDefaults) << "not converted";
    m_rule.m_nLengthUnit = LengthMicrometre;  // is not offered
    m_table.RemoveAll();
    for (int i = 0; i < 250; ++i) {
        CString strFrom, strTo;
        strFrom.Format(L"%d.0", i);
        strTo.Format(L"%d.0", i + 1);
        m_table.Add({{strFrom, strTo, L"1.0", L"2.0", L""}});
    }
    const Rows before = Stored();
    Open([&](DialogUser& user) {
        EXPECT_STREQ(Heading(user), L"Size (\u00b5m)");
        user.Press(VK_RETURN);
    });
    EXPECT_EQ(m_rule.m_nLengthUnit, LengthMicrometre);
    EXPECT_EQ(Stored(), before);
}

TEST_F(SCVariableDraftAngleDlgTest, ImportsWorkbooks) {
    CString strSamples(MFX_SAMPLES);
    strSamples.Replace(L"/", L"\\");
    Open([&](DialogUser& user) {
        Bands(user).Click(2, 3);
        user.Type(L"7");
        user.Press(L'I', VK_CONTROL);
        user.ChooseFile(strSamples + L"draft-angles.xlsx");
        EXPECT_STREQ(Bands(user).Cell(3, 2), L"203.2");
        EXPECT_STREQ(Bands(user).Cell(2, 3), L"1.0") << "old text must not be written over new";
        user.Press(L'I', VK_MENU);
        m_boxes.Expect(
            L"The sheet can't be imported. Its first row must read H1, H2, A1, A2, A3, in columns A to E.",
            MB_ICONEXCLAMATION);
        user.ChooseFile(L"cell-types.xlsx");  // begins in the folder of the last import
        m_boxes.Verify();
        EXPECT_STREQ(Bands(user).Cell(3, 2), L"203.2") << "nothing changes";
        user.ClickOn(IDOK);
    });
    EXPECT_EQ(m_table.GetCount(), 4);
    EXPECT_STREQ(m_table[0].cells[1], L"25.0");
}

TEST_F(SCVariableDraftAngleDlgTest, RefusesSheets) {
    using Sheet = std::vector<std::vector<std::string>>;
    const std::vector<std::string> headings{"H1", "H2", "A1", "A2", "A3"}, first{"0", "25", "3", "3", ""};
    const std::string cell = "<c t='inlineStr'><is><t>";
    const auto write = [&](const Sheet& sheet) {
        std::string rows;
        for (const auto& row : sheet) {
            rows += "<row>";
            for (const std::string& text : row) rows += cell + text + "</t></is></c>";
            rows += "</row>";
        }
        return CString(m_folder.Write(L"b.xlsx", MakeZip(MakeParts(rows))).c_str());
    };
    const struct {
        Sheet sheet;
        CString strMessage;
        UINT nIcon;
    } kCases[] = {
        {{headings}, L"The table has no values. Enter at least one row.", MB_ICONINFORMATION},
        {Sheet(202, headings), L"The sheet can't be imported. It has more than 200 rows of values.",
         MB_ICONEXCLAMATION},
        {{headings, first, {"25,4", "", "1", "1", ""}},
         L"The sheet can't be imported. Cell A3 has \u201c25,4\u201d, which is not a number. Numbers have a "
         L"decimal point.",
         MB_ICONEXCLAMATION},
        {{headings, first, {"25", "", "1", "", ""}},
         CString(L"Nothing was imported. Rows are counted as in the sheet.\n\nRow 3.0") + kIncomplete,
         MB_ICONINFORMATION},
    };
    Open([&](DialogUser& user) {
        for (const auto& [sheet, strMessage, nIcon] : kCases) {
            m_boxes.Expect(strMessage, nIcon);
            user.Press(L'I', VK_CONTROL);
            user.ChooseFile(write(sheet));
            m_boxes.Verify();
            EXPECT_STREQ(Bands(user).Cell(3, 2), L"203") << "nothing changes";
        }
        user.Press(L'I', VK_CONTROL);
        user.ChooseFile(write({headings, first, {"25", "", "1", "2", ""}}));
        user.ClickOn(IDOK);
    });
    EXPECT_EQ(Stored(), (Rows{{{L"0.0", L"25.0", L"3.0", L"3.0", L""}},
                              {{L"25.0", L"1000000000.0", L"1.0", L"2.0", L""}}}));
}

TEST_F(SCVariableDraftAngleDlgTest, HasItsHotKeyOnlyInFront) {
    Open([&](DialogUser& user) {
        EXPECT_FALSE(RegisterHotKey(m_hHostWindow, 7, MOD_CONTROL, L'I'));
        SetActiveWindow(m_hHostWindow);
        EXPECT_TRUE(RegisterHotKey(m_hHostWindow, 7, MOD_CONTROL, L'I')) << "another program may have it";
        UnregisterHotKey(m_hHostWindow, 7);
        SetActiveWindow(user.Window());
        EXPECT_FALSE(RegisterHotKey(m_hHostWindow, 7, MOD_CONTROL, L'I')) << "the dialog has it again";
        EnableWindow(user.Window(), FALSE);
        SendMessageW(user.Window(), WM_HOTKEY, kImportKey, MAKELPARAM(MOD_CONTROL, L'I'));
        EnableWindow(user.Window(), TRUE);
        user.ClickOn(IDCANCEL);
    });
    EXPECT_TRUE(RegisterHotKey(m_hHostWindow, 7, MOD_CONTROL, L'I')) << "the dialog has given it back";
    UnregisterHotKey(m_hHostWindow, 7);
}
