#include "DialogTest.h"

namespace {

HINSTANCE HostResources() {
    return GetModuleHandleW(L"kernel32.dll");
}

template <class Function>
Function Export(HMODULE hModule, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(hModule, name)));
}

}  // namespace

DialogTest::DialogTest()
    : m_hHostWindow(CreateWindowW(L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 300, 200,
                                  nullptr, nullptr, nullptr, nullptr)) {
    SetActiveWindow(m_hHostWindow);
}

DialogTest::~DialogTest() {
    UnloadModule();
    DestroyWindow(m_hHostWindow);
    AfxSetResourceHandle(nullptr);
}

void DialogTest::LoadModule(const CString& strLanguage) {
    UnloadModule();
    AfxSetResourceHandle(HostResources());
    CLanguageUtil::SetMfxKitLang(strLanguage);
    m_hModule = LoadLibraryW(L"MFXSandCastingRulesu.dll");
    ASSERT_TRUE(m_hModule);
    Export<void (*)(MfxRuleArray&)>(m_hModule, "GetAllRules")(m_rules);
}

void DialogTest::UnloadModule() {
    for (CMfxRule* pRule : m_rules) Export<void (*)(CMfxRule**)>(m_hModule, "DeleteRule")(&pRule);
    m_rules.RemoveAll();
    if (m_hModule) FreeLibrary(m_hModule);
    m_hModule = nullptr;
}

CMfxRule& DialogTest::Rule(int nRuleId) {
    for (CMfxRule* pRule : m_rules)
        if (pRule->GetRuleId() == nRuleId) return *pRule;
    throw std::runtime_error("no such rule");
}

void DialogTest::Configure(CMfxRule& rule, const std::function<void(DialogUser&)>& act) {
    const GuiObjects before = CountGuiObjects();
    RunDialog([&] { rule.ConfigureRuleDialog(); },
              [&](DialogUser& user) {
                  EXPECT_FALSE(IsWindowEnabled(m_hHostWindow)) << "the host could delete the rule";
                  EXPECT_EQ(GetWindow(user.Window(), GW_OWNER), m_hHostWindow);
                  act(user);
              });
    EXPECT_TRUE(IsWindowEnabled(m_hHostWindow));
    EXPECT_EQ(GetActiveWindow(), m_hHostWindow);
    EXPECT_EQ(AfxGetResourceHandle(), HostResources());
    EXPECT_EQ(CountGuiObjects().nWindows, before.nWindows);
}
