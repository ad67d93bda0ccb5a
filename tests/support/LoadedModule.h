#pragma once

#include "LanguageUtil.h"
#include "MfxRule.h"

#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

// The rules module from its load in a language to its unload, used through its exports alone. Every load,
// call and unload must leave the host's choice of resources and its application object as they are.
class LoadedModule {
  public:
    explicit LoadedModule(const CString& strLanguage) {
        AfxSetResourceHandle(HostResources());
        CLanguageUtil::SetMfxKitLang(strLanguage);
        m_hModule = LoadLibraryW(kFile);
        ExpectHostUntouched("load");
    }
    ~LoadedModule() {
        FreeLibrary(m_hModule);
        ExpectHostUntouched("unload");
        for (const LPCWSTR pszFile : {kFile, L"MFXSandCastingRulesResu.dll"})
            EXPECT_FALSE(GetModuleHandleW(pszFile)) << "still loaded: " << pszFile;
        AfxSetResourceHandle(nullptr);
    }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    static HINSTANCE HostResources() { return GetModuleHandleW(L"kernel32.dll"); }
    HMODULE GetHandle() const { return m_hModule; }

    // Calls an export; what it takes by reference is given as pointer.
    template <class... Args>
    void Call(const char* name, Args... args) const {
        const auto function = reinterpret_cast<void (*)()>(GetProcAddress(m_hModule, name));
        reinterpret_cast<void (*)(Args...)>(function)(args...);
        ExpectHostUntouched(name);
    }

    // Gives a rule back to the module.
    struct RuleDeleter {
        const LoadedModule* pModule;
        void operator()(CMfxRule* pRule) const {
            pModule->Call("DeleteRule", &pRule);
            EXPECT_FALSE(pRule);
        }
    };
    using RulePtr = std::unique_ptr<CMfxRule, RuleDeleter>;

    RulePtr GetRule(MfxXMLNode* pRecord) const {
        CMfxRule* pRule = nullptr;
        Call("GetRule", pRecord, &pRule);
        return {pRule, {this}};
    }
    std::vector<RulePtr> GetAllRules() const {
        MfxRuleArray array;
        Call("GetAllRules", &array);
        std::vector<RulePtr> rules;
        for (CMfxRule* pRule : array) rules.push_back({pRule, {this}});
        return rules;
    }

  private:
    static constexpr wchar_t kFile[] = L"MFXSandCastingRulesu.dll";

    void ExpectHostUntouched(const char* after) const {
        EXPECT_EQ(AfxGetResourceHandle(), HostResources()) << after;
        EXPECT_EQ(AfxGetApp(), m_pHostApp) << after;
    }

    CWinApp* const m_pHostApp = AfxGetApp();
    HMODULE m_hModule = nullptr;
};
