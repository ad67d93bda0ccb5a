#include "HostTest.h"
#include "resource.h"

#include <thread>

using namespace testing;

namespace {

// Runs mfxhost and acts in the dialog that it opens, from outside as a screen reader would.
class ConfigureTest : public HostTest {
  protected:
    ConfigureTest() { m_folder.Write(L"r.xml", m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml"))); }

    void Configure(const Arguments& more, void (*act)(HWND), const TextMatcher& out,
                   const std::wstring& ruleId = L"19030", LPCWSTR pszCaption = L"Wall Thickness Variation") {
        Arguments arguments{L"configure", L"r.xml", L"--rule", ruleId, L"--lang", L"english"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const std::jthread user([act, pszCaption] {
            HWND hDialog = nullptr;
            for (int i = 0; i < 500 && !(hDialog = FindWindowW(L"#32770", pszCaption)); ++i) Sleep(20);
            ASSERT_TRUE(hDialog);
            for (int i = 0; i < 500 && !IsWindowVisible(hDialog); ++i) Sleep(20);
            act(hDialog);
        });
        Run(arguments, 0, out, "");
    }
};

void EnterSevenInches(HWND hDialog) {
    SendDlgItemMessageW(hDialog, IDC_VARIATION_VALUE, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"7"));
    SendDlgItemMessageW(hDialog, IDC_VARIATION_LENGTH_UNIT, CB_SETCURSEL, 2, 0);
    PostMessageW(hDialog, WM_COMMAND, IDOK, 0);
}

void ChooseLimits(HWND hDialog, int nRadioButton) {
    for (const int nButton : {IDC_UNIFORM_COMMON, IDC_UNIFORM_BY_MATERIAL})
        SendDlgItemMessageW(hDialog, nButton, BM_SETCHECK,
                            nButton == nRadioButton ? BST_CHECKED : BST_UNCHECKED, 0);
}

void Cancel(HWND hDialog) {
    PostMessageW(hDialog, WM_COMMAND, IDCANCEL, 0);
}

}  // namespace

TEST_F(ConfigureTest, SavesWhatWasChangedAndNothingElse) {
    const std::string before = m_folder.Read(L"r.xml");
    Configure({L"-o", L"out.xml"}, EnterSevenInches, "out.xml: Wall Thickness Variation changed\n");
    EXPECT_EQ(m_folder.Read(L"r.xml"), before);
    Configure({}, EnterSevenInches, "r.xml: Wall Thickness Variation changed\n");
    const std::string after =
        Replaced(Replaced(before, "<Value>25</Value>", "<Value>7</Value>"), "at most 25.0", "at most 7.0");
    EXPECT_EQ(m_folder.Read(L"r.xml"), after) << "the document stays in its units";
    EXPECT_EQ(m_folder.Read(L"out.xml"), after);
    Run({L"show", L"r.xml", L"--lang", L"english"}, 0, HasSubstr("Allowed variation  yes     7\n"), "");
}

TEST_F(ConfigureTest, SavesATable) {
    m_folder.Write(L"r.xml", m_folder.Read(Wide(MFX_SAMPLES "draft-angle.xml")));
    Run({L"show", L"r.xml", L"--lang", L"english"}, 0, ContainsRegex("\n +101 +203 +\\.75 +1 +1\n"), "");
    const auto chooseCentimetres = [](HWND hDialog) {
        SendDlgItemMessageW(hDialog, IDC_DRAFT_LENGTH_UNIT, CB_SETCURSEL, 1, 0);
        PostMessageW(hDialog, WM_COMMAND, IDOK, 0);
    };
    Configure({}, chooseCentimetres, "r.xml: Variable Draft Angle changed\n", L"19040",
              L"Variable Draft Angle");
    Run({L"show", L"r.xml", L"--lang", L"english"}, 0,
        ContainsRegex("\n +1010.0 +2030.0 +0\\.75 +1.0 +1.0\n"), "");
}

TEST_F(ConfigureTest, SavesWhichGroupIsActive) {
    SetEnvironmentVariableW(L"MFX_MATERIAL_DATABASE", m_folder.Path(L"materials.db").c_str());
    const std::string steel = R"(Value="Steel" Status=)", aluminium = R"(Value="Aluminium Alloys" Status=)";
    const std::string note = R"("1" Note="of steel">)";
    m_folder.Write(L"r.xml", Replaced(m_folder.Read(Wide(MFX_SAMPLES "all-rules.xml")),
                                      steel + "\"1\">\n      <Parameter Name=\"Cast size from",
                                      steel + note + "\n      <Parameter Name=\"Cast size from"));
    const std::string before = m_folder.Read(L"r.xml");
    constexpr wchar_t kCaption[] = L"Wall Thickness by Cast Size and Weight";
    Configure({}, Cancel, "Wall Thickness by Cast Size and Weight was not changed\n", L"19020", kCaption);
    Run({L"convert", L"r.xml", L"--length", L"in"}, 0, _, _);
    EXPECT_THAT(m_folder.Read(L"r.xml"), HasSubstr(aluminium + "\"0\""));
    m_folder.Write(L"r.xml", before);
    Configure(
        {}, [](HWND hDialog) { PostMessageW(hDialog, WM_COMMAND, IDOK, 0); },
        "r.xml: Wall Thickness by Cast Size and Weight changed\n", L"19020", kCaption);
    const std::string after = m_folder.Read(L"r.xml");
    EXPECT_THAT(after, HasSubstr(steel + "\"0\" Note=\"of steel\""))
        << "what others wrote stays with its group";
    EXPECT_LT(after.find(aluminium + "\"1\""), after.find(steel + "\"0\" Note")) << "the rule's order";
}

TEST_F(ConfigureTest, SavesWhichLimitsAreInForce) {
    m_folder.Write(L"r.xml", m_folder.Read(Wide(MFX_SAMPLES "legacy-material-table.xml")));
    const auto open = [&](void (*act)(HWND), const std::string& says) {
        Configure({}, act, says, L"19010", L"Uniform Wall Thickness");
    };
    open(
        [](HWND hDialog) {
            ChooseLimits(hDialog, IDC_UNIFORM_COMMON);
            PostMessageW(hDialog, WM_COMMAND, IDOK, 0);
        },
        "r.xml: Uniform Wall Thickness changed\n");
    const std::string common = m_folder.Read(L"r.xml");
    EXPECT_THAT(common, HasSubstr("Value=\"Steel\" Status=\"0\""));
    EXPECT_THAT(common, HasSubstr("Summary=\"Minimum wall thickness"));
    open(
        [](HWND hDialog) {
            EXPECT_TRUE(IsDlgButtonChecked(hDialog, IDC_UNIFORM_COMMON));
            ChooseLimits(hDialog, IDC_UNIFORM_BY_MATERIAL);
            PostMessageW(hDialog, WM_COMMAND, IDOK, 0);
        },
        "r.xml: Uniform Wall Thickness changed\n");
    EXPECT_THAT(m_folder.Read(L"r.xml"), HasSubstr("Value=\"Steel\" Status=\"1\""));
    EXPECT_THAT(m_folder.Read(L"r.xml"), HasSubstr("Summary=\"Wall thickness limits by material\""));
}

TEST_F(ConfigureTest, WritesNothingWhenNothingChanged) {
    const std::string before = m_folder.Read(L"r.xml");
    for (const auto act : {Cancel, +[](HWND hDialog) { PostMessageW(hDialog, WM_COMMAND, IDOK, 0); }}) {
        Configure({L"-o", L"out.xml"}, act, "Wall Thickness Variation was not changed\n");
        EXPECT_THAT(m_folder.Names(), ElementsAre(L"r.xml"));
        EXPECT_EQ(m_folder.Read(L"r.xml"), before);
    }
}

TEST_F(ConfigureTest, RefusesWhatItCanNotEdit) {
    const Arguments variation{L"configure", L"r.xml", L"--rule", L"19030"};
    // No dialog opens for what could not be saved.
    SetFileAttributesW(m_folder.Write(L"read-only.xml", "mine").c_str(), FILE_ATTRIBUTE_READONLY);
    for (const std::wstring target : {L"read-only.xml", L"none\\d.xml", L"."})
        Run({L"configure", L"r.xml", L"--rule", L"19030", L"-o", target}, 4, "",
            HasSubstr(Utf8(target) + ": can't be written: "));
    EXPECT_EQ(m_folder.Names().size(), 2u);
    Run({L"configure", L"r.xml", L"--rule", L"7"}, 2, "", HasSubstr("r.xml has no rule 7; its rules are"));
    Run({L"configure", L"r.xml"}, 2, "", HasSubstr("--rule"));
    m_folder.Write(L"r.xml", Replaced(m_folder.Read(L"r.xml"), "<Value>25</Value>", "<Value>x</Value>"));
    Run(variation, 1, "", AllOf(HasSubstr("\"x\" is not a number"), HasSubstr("r.xml was not changed")));
}
