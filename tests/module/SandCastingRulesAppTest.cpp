#include "ModuleTestSupport.h"
#include "SCVariableDraftAngleRule.h"
#include "resource.h"

#include <gmock/gmock.h>

extern "C" void SetDBModuleList(CStringList& modules);
extern "C" void GetAllRules(MfxRuleArray& rules);
extern "C" void GetRule(MfxXMLNode* pRecord, CMfxRule** ppRule);

namespace {

// What the system's language is in this run.
CString Environment(LPCWSTR pszName, LPCWSTR pszDefault) {
    wchar_t szValue[100] = L"";
    return GetEnvironmentVariableW(pszName, szValue, 100) ? szValue : pszDefault;
}

}  // namespace

// That libraries are loaded and unloaded, and the host's resources left alone, is seen from outside.
TEST(SandCastingRulesAppTest, OpensTheUsersLanguageOrElseTheDefault) {
    for (const auto& [pszWord, pszOpened] :
         {std::pair{L"french", L"french"}, {L"english", L"english"}, {L"nowhere", L"english"}}) {
        SCOPED_TRACE(testing::Message() << pszWord);
        CLanguageUtil::SetMfxKitLang(pszWord);
        CMFXSandCastingRulesApp app;
        EXPECT_TRUE(app.InitInstance());
        EXPECT_EQ(AfxGetResourceHandle(), app.m_hResDll);
        EXPECT_STREQ(app.GetLanguage(), pszOpened);
        EXPECT_STREQ(app.m_strResPath.Mid(app.m_strResPath.ReverseFind(L'\\') + 1), pszOpened);
        EXPECT_STREQ(app.m_strHelpPath, app.m_strResPath + L"\\mfxkit.chm");
        EXPECT_STREQ(app.LoadDefaultLanguageString(IDS_DRAFT_RULE_NAME), L"Variable Draft Angle");
        EXPECT_EQ(app.ExitInstance(), 0);
        EXPECT_FALSE(g_pSandCastingRulesApp);
    }
}

TEST(SandCastingRulesAppTest, WithoutLibrariesOrApplicationTextsAreEmptyAndNotTheHosts) {
    CString strHost;
    EXPECT_TRUE(strHost.LoadString(GetModuleHandleW(nullptr), IDS_PROCESS));
    CMFXSandCastingRulesApp app;
    EXPECT_STREQ(app.LoadLocalizedString(IDS_PROCESS) + app.LoadDefaultLanguageString(IDS_PROCESS), L"");
    EXPECT_EQ(app.ExitInstance(), 0);

    CMFXSCVariableDraftAngleRule rule;
    EXPECT_STREQ(rule.m_strName + rule.m_strDisplayName + rule.m_strSummary + rule.m_strModule, L"");
    EXPECT_TRUE(rule.m_processList.IsEmpty());
    EXPECT_EQ(rule.m_paramArray[0].m_pStorage->GetValues<MfxTableRow>().GetCount(), 4);
    MfxRuleArray rules;
    GetAllRules(rules);
    EXPECT_TRUE(rules.IsEmpty());
    // All names that a record's could be compared with are empty, too.
    MfxXMLDocument document;
    const std::unique_ptr<MfxXMLNode> pNameless(document.CreateRootNode(L"Rule"));
    pNameless->AddAttribute(L"Module", L"MFXSandCastingRulesValidator");
    CMfxRule* pRule = nullptr;
    GetRule(pNameless.get(), &pRule);
    EXPECT_FALSE(pRule);
    CStringList modules;
    SetDBModuleList(modules);
}

TEST(SandCastingRulesAppTest, DatabaseModulesAreReplacedByACopy) {
    const StartedApp app(L"english");
    CStringList modules;
    for (const LPCWSTR pszName : {L"Zinc", L"Alloys"}) modules.AddTail(pszName);
    for (int i = 0; i < 2; ++i) SetDBModuleList(modules);
    modules.RemoveAll();
    ASSERT_EQ(app.m_dbModuleList.GetCount(), 2);
    EXPECT_STREQ(app.m_dbModuleList.GetHead(), L"Zinc");
    EXPECT_STREQ(app.m_dbModuleList.GetTail(), L"Alloys");
    SetDBModuleList(modules);
    EXPECT_TRUE(app.m_dbModuleList.IsEmpty());
}

TEST(SystemLanguageTest, RegistryOptionOrElseTheSystemsLanguage) {
    constexpr auto kKey = L"SOFTWARE\\Quillmark\\KPT_PRODUCT\\MfxKit\\NX\\Add-in";
    const CString strSystem = Environment(L"MFX_TEST_LANGUAGE", L"english");
    // A user's hive for this process alone.
    CString strHive;
    strHive.Format(L"SOFTWARE\\MfxTest%lu", GetCurrentProcessId());
    HKEY hHive = nullptr;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, strHive, &hHive), 0);
    RegOverridePredefKey(HKEY_CURRENT_USER, hHive);
    EXPECT_STREQ(CMFXSandCastingRulesApp::GetRegistryLanguage(), strSystem);
    const LPCWSTR words[] = {L"english", L"japanese", L"korean", strSystem, L"french", strSystem};
    for (DWORD dwOption = 0; dwOption < std::size(words); ++dwOption) {
        RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"OptionsLanguage", REG_DWORD, &dwOption, sizeof dwOption);
        EXPECT_STREQ(CMFXSandCastingRulesApp::GetRegistryLanguage(), words[dwOption]) << dwOption;
        EXPECT_STREQ(StartedApp(L"").GetLanguage(), strSystem) << "start-up asks the framework";
    }
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, strHive);
}

TEST(SystemLanguageTest, LocaleCode) {
    const CString strSystem = Environment(L"MFX_TEST_LOCALE", L"en_US");
    CMFXSandCastingRulesApp app;
    for (const auto& [pszWord, pszCode] : {std::pair<LPCWSTR, LPCWSTR>{L"chinese-simplified", strSystem},
                                           {L"french", L"french"},
                                           {L"", L"english"}}) {
        app.m_strLanguageCode = pszWord;
        EXPECT_STREQ(app.GetLocaleCode(), pszCode) << pszWord;
    }
}
