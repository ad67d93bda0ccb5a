#include "DialogTest.h"
#include "GridUser.h"
#include "RealDatabase.h"
#include "resource.h"

#include <afxcmn.h>

namespace {

// The editor of the material database, over a rule's dialog and with the real database.
struct EditMaterialDBDlgTest : DialogTest {
    EditMaterialDBDlgTest() : DialogTest(L"english") {}

    void Edit(const std::function<void(DialogUser&)>& act) {
        Configure(Rule(19010), [&](DialogUser& user) {
            user.ClickOn(IDC_EDIT_MATERIALS);
            user.InNextDialog([&] { act(user); });
            user.ClickOn(IDCANCEL);
        });
    }

    // The tree has the keys; its letters look for names.
    static void Select(DialogUser& user, const CString& strGroup, const CString& strMaterial = L"") {
        SendMessageW(user.Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(user.Control(IDC_MATERIALS_TREE)),
                     TRUE);
        user.Press(VK_HOME);
        user.Type(strGroup);
        if (strMaterial.IsEmpty()) return;
        user.Press(VK_RIGHT);
        for (int i = 0; i < 9 && user.TextOf(IDC_MATERIALS_NAME) != strMaterial; ++i) user.Press(VK_DOWN);
        EXPECT_STREQ(user.TextOf(IDC_MATERIALS_NAME), strMaterial);
    }
    static void ChooseUnit(DialogUser& user, int nControlId, int nIndex) {
        SendMessageW(user.Control(nControlId), CB_SETCURSEL, static_cast<WPARAM>(nIndex), 0);
        SendMessageW(user.Window(), WM_COMMAND, MAKEWPARAM(nControlId, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(user.Control(nControlId)));
    }

    RealDatabase m_real;
};

const std::string kHeadings =
    "Process,Family,Group,Material,Density [g/cm3],Minimum wall thickness [mm],Maximum wall thickness [mm]\n";

}  // namespace

TEST_F(EditMaterialDBDlgTest, SavesByOkAndNothingByCancel) {
    const CString strBefore = m_real.Names(L"Iron");
    for (const bool bOk : {false, true}) {
        Edit([&](DialogUser& user) {
            EXPECT_EQ(GetFocus(), user.Control(IDC_MATERIALS_TREE));
            EXPECT_FALSE(IsWindowEnabled(user.Control(IDC_MATERIALS_NAME))) << "a process keeps its name";
            Select(user, L"Iron", L"Gray Cast Iron");
            EXPECT_STREQ(user.TextOf(IDC_MATERIALS_MINIMUM), L"3.18");
            ChooseUnit(user, IDC_MATERIALS_WALL_UNIT, 2);
            EXPECT_STREQ(user.TextOf(IDC_MATERIALS_MINIMUM), L"0.125197");
            EXPECT_STREQ(user.TextOf(IDC_MATERIALS_MAXIMUM_UNIT), L"in");
            user.Enter(IDC_MATERIALS_NAME, L"Gray");
            user.ClickOn(IDC_MATERIALS_NEW_MATERIAL);
            user.Type(L"Ductile");
            user.Enter(IDC_MATERIALS_DENSITY, L"7.1");
            Select(user, L"Iron", L"Malleable Cast Iron");
            m_boxes.Expect(L"Delete the material Malleable Cast Iron?", MB_ICONQUESTION);
            user.ClickOn(IDC_MATERIALS_DELETE);
            m_boxes.Verify();
            user.ClickOn(bOk ? IDOK : IDCANCEL);
        });
        EXPECT_EQ(m_real.Names(L"Iron"), bOk ? CString(L"Gray;Ductile;") : strBefore);
    }
}

TEST_F(EditMaterialDBDlgTest, OffersWhatIsNewInTheDialogBehind) {
    Configure(Rule(19010), [&](DialogUser& user) {
        GridUser grid(user, IDC_UNIFORM_MATERIALS);
        user.ClickOn(IDC_EDIT_MATERIALS);
        user.InNextDialog([&] {
            Select(user, L"Steel");
            user.ClickOn(IDC_MATERIALS_NEW_MATERIAL);
            user.Type(L"Neu");
            user.Press(VK_RETURN);
        });
        grid.DoubleClick(0, 0);
        EXPECT_GE(
            SendDlgItemMessageW(user.Control(IDC_UNIFORM_MATERIALS), GridUser::kComboId, CB_FINDSTRINGEXACT,
                                static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(L"Neu")),
            0);
        user.ClickOn(IDCANCEL);
    });
    Configure(Rule(19020), [&](DialogUser& user) {
        GridUser groups(user, IDC_SIZE_WEIGHT_GROUPS);
        user.ClickOn(IDC_EDIT_MATERIALS);
        user.InNextDialog([&] {
            user.ClickOn(IDC_MATERIALS_NEW_GROUP);
            user.Press(VK_RETURN);
        });
        groups.DoubleClick(0, 0);
        EXPECT_EQ(groups.ChoiceCount(), 8) << "the seven of the database and the new one";
        user.Press(VK_ESCAPE);
        user.ClickOn(IDCANCEL);
    });
}

TEST_F(EditMaterialDBDlgTest, ShowsFlawsWhereTheyAre) {
    const struct {
        int nControl;
        LPCWSTR pszText;
        LPCWSTR pszMessage;
        int nFocus;
    } kCases[] = {
        {IDC_MATERIALS_NAME, L"", L"Enter a name.", IDC_MATERIALS_NAME},
        {IDC_MATERIALS_DENSITY, L"0", L"Enter a number above zero, or nothing.", IDC_MATERIALS_DENSITY},
        {IDC_MATERIALS_MINIMUM, L".", L"Enter a number above zero, or nothing.", IDC_MATERIALS_MINIMUM},
        {IDC_MATERIALS_MINIMUM, L"9", L"The maximum is below the minimum.", IDC_MATERIALS_MAXIMUM},
    };
    Edit([&](DialogUser& user) {
        for (const auto& test : kCases) {
            Select(user, L"Iron", L"Gray Cast Iron");
            const CString strBefore = user.TextOf(test.nControl);
            user.Enter(test.nControl, test.pszText);
            m_boxes.Expect(test.pszMessage, MB_ICONINFORMATION);
            user.ClickOn(IDOK);
            m_boxes.Verify();
            EXPECT_EQ(GetFocus(), user.Control(test.nFocus));
            user.Enter(test.nControl, strBefore);
        }
        user.Enter(IDC_MATERIALS_NAME, L"");
        m_boxes.Expect(L"Enter a name.", MB_ICONINFORMATION);
        SendMessageW(user.Control(IDC_MATERIALS_TREE), WM_KEYDOWN, VK_HOME, 0);
        m_boxes.Verify();
        EXPECT_STREQ(user.TextOf(IDC_MATERIALS_DENSITY), L"") << "the material is still shown";
        user.ClickOn(IDCANCEL);
    });
    EXPECT_EQ(m_real.Names(L"Iron"), L"Gray Cast Iron;Malleable Cast Iron;");
}

TEST_F(EditMaterialDBDlgTest, SaysWhyNothingCanBeChanged) {
    EXPECT_TRUE(m_real.Collector().IsAvailable());
    m_real->SetPath(m_real.Path());  // closes the file
    SetFileAttributesW(m_real.Path(), FILE_ATTRIBUTE_READONLY);
    Edit([&](DialogUser& user) {
        EXPECT_STREQ(
            user.TextOf(IDC_MATERIALS_REASON),
            L"The material database can't be written. You can look at the materials and export them.");
        Select(user, L"Iron", L"Gray Cast Iron");
        for (const int nControlId :
             {IDC_MATERIALS_NAME, IDC_MATERIALS_DENSITY, IDC_MATERIALS_MINIMUM, IDC_MATERIALS_MAXIMUM,
              IDC_MATERIALS_NEW_GROUP, IDC_MATERIALS_NEW_MATERIAL, IDC_MATERIALS_DELETE, IDC_MATERIALS_IMPORT,
              IDOK})
            EXPECT_FALSE(IsWindowEnabled(user.Control(nControlId))) << nControlId;
        EXPECT_TRUE(IsWindowEnabled(user.Control(IDC_MATERIALS_EXPORT)));
        user.ClickOn(IDCANCEL);
    });
    SetFileAttributesW(m_real.Path(), FILE_ATTRIBUTE_NORMAL);
    m_real.Write(L"text.db", std::string(1000, 'x'));
    m_real->SetPath(m_real.Path(L"text.db"));
    m_boxes.Expect(L"The file of the material database belongs to another application.", MB_ICONEXCLAMATION);
    Edit([&](DialogUser& user) {
        m_boxes.Verify();
        EXPECT_FALSE(IsWindowEnabled(user.Control(IDC_MATERIALS_NEW_GROUP)));
        user.ClickOn(IDCANCEL);
    });
}

TEST_F(EditMaterialDBDlgTest, StaysOpenWhenAnotherProgramWasFaster) {
    Edit([&](DialogUser& user) {
        Select(user, L"Iron", L"Gray Cast Iron");
        user.Enter(IDC_MATERIALS_DENSITY, L"7.2");
        m_real.Collector().ApplyChanges({MfxDeleteGroup{{L"Sand Casting", L"Iron"}}});
        m_boxes.Expect(
            L"Nothing was saved: the changes do not fit what is in the material database now. Cancel, "
            L"and open it again to see it.\n\nanother program has changed \"Gray Cast Iron\"",
            MB_ICONEXCLAMATION);
        user.ClickOn(IDOK);
        m_boxes.Verify();
        user.ClickOn(IDCANCEL);
    });
}

TEST_F(EditMaterialDBDlgTest, ExportsAndImports) {
    m_real.Write(L"more.csv", kHeadings + "Sand Casting,,鋳鉄,주철,,,\n");
    m_real.Write(L"wrong.csv", kHeadings + "Sand Casting,,,A,,,\n");
    m_real.Write(L"none.csv", "");
    Edit([&](DialogUser& user) {
        Select(user, L"Steel");
        user.Enter(IDC_MATERIALS_NAME, L"Steels");
        m_boxes.Expect(L"Your changes are saved before the export. Cancel does not undo them then. Export?",
                       MB_ICONQUESTION);
        user.ClickOn(IDC_MATERIALS_EXPORT);
        user.ChooseFile(m_real.Path(L"out.csv"));
        const CString strQuestion =
            L"An import is saved at once, and all your changes with it. Cancel does not undo them. Import?";
        m_boxes.Expect(strQuestion, MB_ICONQUESTION);
        m_boxes.Expect(L"Materials: 1 added, 0 changed, 0 unchanged.", MB_ICONINFORMATION);
        user.ClickOn(IDC_MATERIALS_IMPORT);
        user.ChooseFile(m_real.Path(L"more.csv"));
        m_boxes.Verify();
        m_boxes.Expect(strQuestion, MB_ICONQUESTION);
        m_boxes.Expect(
            L"Nothing was imported. Wrong lines: 1. The first of them:\r\n\r\n"
            L"2: the group has no name\r\n",
            MB_ICONINFORMATION);
        user.ClickOn(IDC_MATERIALS_IMPORT);
        user.ChooseFile(m_real.Path(L"wrong.csv"));
        m_boxes.Verify();
        m_boxes.Expect(strQuestion, MB_ICONQUESTION);
        m_boxes.Expect(L"The file can't be imported.\r\n\r\n" + m_real.Path(L"none.csv") + L" is empty",
                       MB_ICONINFORMATION);
        user.ClickOn(IDC_MATERIALS_IMPORT);
        user.ChooseFile(m_real.Path(L"none.csv"));
        m_boxes.Verify();
        user.ClickOn(IDCANCEL);
    });
    EXPECT_NE(m_real.Read(L"out.csv").find("\nSand Casting,,Steels,"), std::string::npos);
    EXPECT_STREQ(m_real.Names(L"鋳鉄"), L"주철;");
}

TEST_F(EditMaterialDBDlgTest, HoldsTenThousandMaterials) {
    std::string lines = kHeadings;
    for (int i = 0; i < 10'000; ++i)
        lines += "Sand Casting,,G" + std::to_string(i % 10) + ",M" + std::to_string(i) + ",7.2,3,5\n";
    m_real.Write(L"many.csv", lines);
    MaterialImportEvents events;
    events.progress = [](std::uint64_t, std::uint64_t) {};
    MaterialImportCounts counts;
    m_real->ImportCsv(m_real.Path(L"many.csv"), false, events, counts);
    Edit([&](DialogUser& user) {
        EXPECT_GT(SendDlgItemMessageW(user.Window(), IDC_MATERIALS_TREE, TVM_GETCOUNT, 0, 0), 10'000);
        Select(user, L"G9", L"M19");
        user.Enter(IDC_MATERIALS_NAME, L"Last");
        user.ClickOn(IDOK);
    });
    EXPECT_STREQ(m_real.Names(L"G9").Left(8), L"M9;Last;");
}
