// The module as a host uses it: loaded by its name, through its exports alone.

#include "LanguageUtil.h"
#include "MfxRule.h"
#include "MfxXMLDocument.h"
#include "support/MessageBoxRecorder.h"

#include <afxwin.h>

#include <gmock/gmock.h>

#include <array>
#include <memory>
#include <tuple>

namespace {

constexpr wchar_t kModuleFile[] = L"MFXSandCastingRulesu.dll";
constexpr wchar_t kModuleName[] = L"MFXSandCastingRulesValidator";

// Every rule of the module, in its order.
constexpr struct {
    const wchar_t* pszName;
    int nId;
} kRules[] = {{L"Uniform Wall Thickness", 19010},
              {L"Wall Thickness by Cast Size and Weight", 19020},
              {L"Variable Draft Angle", 19040},
              {L"Wall Thickness Variation", 19030}};
constexpr int kRuleCount = static_cast<int>(std::size(kRules));

using NodePtr = std::unique_ptr<MfxXMLNode>;

// The host's choice of resources and its application object, which the module must leave alone.
HINSTANCE HostResources() {
    return GetModuleHandleW(L"kernel32.dll");
}
CWinApp* g_pHostApp = nullptr;
void ExpectHostUntouched(const char* after) {
    EXPECT_EQ(AfxGetResourceHandle(), HostResources()) << after;
    EXPECT_EQ(AfxGetApp(), g_pHostApp) << after;
}

// The module from its load in a language to its unload.
struct Module {
    explicit Module(const CString& strLanguage) {
        CLanguageUtil::SetMfxKitLang(strLanguage);
        hModule = LoadLibraryW(kModuleFile);
        ExpectHostUntouched("load");
    }
    ~Module() {
        FreeLibrary(hModule);
        ExpectHostUntouched("unload");
        EXPECT_FALSE(GetModuleHandleW(kModuleFile));
        EXPECT_FALSE(GetModuleHandleW(L"MFXSandCastingRulesResu.dll"));
    }

    // Calls an export; what it takes by reference is given as pointer.
    template <class... Args>
    void Call(const char* name, Args... args) const {
        const auto function = reinterpret_cast<void (*)()>(GetProcAddress(hModule, name));
        reinterpret_cast<void (*)(Args...)>(function)(args...);
        ExpectHostUntouched(name);
    }

    struct Deleter {
        const Module* pModule;
        void operator()(CMfxRule* pRule) const {
            pModule->Call("DeleteRule", &pRule);
            EXPECT_FALSE(pRule);
        }
    };
    using RulePtr = std::unique_ptr<CMfxRule, Deleter>;

    RulePtr Create(MfxXMLNode* pRecord) const {
        CMfxRule* pRule = nullptr;
        Call("GetRule", pRecord, &pRule);
        return {pRule, {this}};
    }
    std::vector<RulePtr> CreateAll() const {
        MfxRuleArray array;
        Call("GetAllRules", &array);
        std::vector<RulePtr> rules;
        for (CMfxRule* pRule : array) rules.push_back({pRule, {this}});
        return rules;
    }

    HMODULE hModule;
};

class ExportsTest : public testing::Test {
  protected:
    ExportsTest() {
        g_pHostApp = AfxGetApp();
        AfxSetResourceHandle(HostResources());
    }

    // A record with a name and a module, null for none.
    NodePtr Record(LPCWSTR pszName, LPCWSTR pszModule) {
        NodePtr pRecord(m_document.CreateNode(L"Rule"));
        if (pszName) pRecord->AddAttribute(L"Name", pszName);
        if (pszModule) pRecord->AddAttribute(L"Module", pszModule);
        return pRecord;
    }

    MessageBoxRecorder m_boxes;
    MfxXMLDocument m_document;
};

struct CSeenRule : CMfxRule {
    void PopulateFromXML(MfxXMLNode* pNode) override {
        EXPECT_NE(AfxGetResourceHandle(), HostResources());
        seen.push_back(pNode);
        if (seen.size() == 2) throw 1;
    }
    std::vector<MfxXMLNode*> seen;
};

// Of all heaps of the process.
std::size_t HeapBytesInUse() {
    HANDLE heaps[100];
    std::size_t nBytes = 0;
    for (DWORD i = GetProcessHeaps(100, heaps); i-- > 0;) {
        for (PROCESS_HEAP_ENTRY entry{}; HeapWalk(heaps[i], &entry);)
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) nBytes += entry.cbData;
        EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_MORE_ITEMS});
    }
    return nBytes;
}

}  // namespace

TEST_F(ExportsTest, SevenUndecoratedNamesAndNothingElse) {
    const Module module(L"english");
    const auto* pImage = reinterpret_cast<const char*>(module.hModule);
    const auto* pDos = reinterpret_cast<const IMAGE_DOS_HEADER*>(pImage);
    const auto* pHeaders = reinterpret_cast<const IMAGE_NT_HEADERS*>(pImage + pDos->e_lfanew);
    const auto& directory = pHeaders->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* pExports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(pImage + directory.VirtualAddress);
    const auto* pNames = reinterpret_cast<const DWORD*>(pImage + pExports->AddressOfNames);
    std::vector<std::string> names;
    for (DWORD i = 0; i < pExports->NumberOfNames; ++i) names.emplace_back(pImage + pNames[i]);
    EXPECT_THAT(names,
                testing::UnorderedElementsAre("SetXMLDoc", "SetDBModuleList", "GetModuleName",
                                              "GetModuleSummary", "GetAllRules", "GetRule", "DeleteRule"));
    EXPECT_EQ(pExports->NumberOfFunctions, names.size());
}

TEST_F(ExportsTest, GetAllRulesAppendsToTheHostsArray) {
    const Module module(L"french");
    for (const auto& [nCount, nGrowBy, nNewCapacity, nNewGrowBy] :
         std::to_array<std::array<int, 4>>({{3, 10, 13, 12}, {3, 9, 12, 12}, {0, 4, 4, 7}})) {
        CMfxRule own;
        MfxRuleArray rules(nCount, nGrowBy);
        for (int i = 0; i < nCount; ++i) rules.Add(&own);
        module.Call("GetAllRules", &rules);
        ASSERT_THAT((std::vector{rules.m_nCapacity, rules.m_nGrowBy, rules.m_nCount}),
                    testing::ElementsAre(nNewCapacity, nNewGrowBy, nCount + kRuleCount));
        EXPECT_TRUE(nCount == 0 || rules[nCount - 1] == &own);
        for (int i = 0; i < kRuleCount; ++i) {
            const Module::RulePtr pRule(rules[nCount + i], {&module});
            EXPECT_TRUE(pRule->GetRuleId() == kRules[i].nId && !pRule->m_bPopulated);
        }
    }
}

TEST_F(ExportsTest, GetRuleFindsRulesByTheirDefaultName) {
    const Module module(L"french");
    for (const auto& pFresh : module.CreateAll()) {
        const CString strName = pFresh->m_strName, strUpper = CString(strName).MakeUpper();
        for (const auto& [pszName, pszModule, bFound] :
             {std::tuple<LPCWSTR, LPCWSTR, bool>{strName, kModuleName, true},
              {strUpper, L"mfxsandcastingRULESvalidator", true},
              {pFresh->m_strDisplayName, kModuleName, false},
              {nullptr, kModuleName, false},
              {strName, L"Other", false},
              {strName, nullptr, false}}) {
            const Module::RulePtr pRule = module.Create(Record(pszName, pszModule).get());
            EXPECT_EQ(pRule != nullptr, bFound) << pszName << ", " << pszModule;
            EXPECT_TRUE(!pRule || pRule->GetRuleId() == pFresh->GetRuleId());
            // A record without the variation leaves that rule as it is.
            EXPECT_TRUE(!pRule || pRule->m_bPopulated == (pRule->GetRuleId() != 19030));
        }
    }
}

TEST_F(ExportsTest, RuleThatIsAlreadyThereIsPopulated) {
    const Module module(L"english");
    const NodePtr pKnown = Record(kRules[0].pszName, kModuleName), pUnknown = Record(L"No rule", kModuleName),
                  pForeign = Record(kRules[0].pszName, L"Other"), pNull;
    CSeenRule rule;
    CMfxRule* pRule = &rule;
    for (const NodePtr* pRecord : {&pKnown, &pUnknown, &pForeign, &pNull}) {
        EXPECT_NO_THROW(module.Call("GetRule", pRecord->get(), &pRule));
        EXPECT_EQ(pRule, &rule);
    }
    EXPECT_THAT(rule.seen, testing::ElementsAre(pKnown.get(), pUnknown.get()));
}

TEST_F(ExportsTest, ThousandsOfRulesLeaveNoMemoryBehind) {
    constexpr int kWarmUpRounds = 300, kRounds = 4000;
    const Module module(L"french");
    std::size_t before = 0;
    for (int i = 0; i < kWarmUpRounds + kRounds; ++i) {
        if (i == kWarmUpRounds) before = HeapBytesInUse();
        MfxXMLDocument document;
        for (const auto& pRule : module.CreateAll()) {
            module.Call("SetXMLDoc", &document);
            const NodePtr pRecord(pRule->BuildXMLNode());
            ASSERT_TRUE(module.Create(pRecord.get()));
            module.Call("SetXMLDoc", static_cast<MfxXMLDocument*>(nullptr));
            ASSERT_FALSE(NodePtr(pRule->BuildXMLNode()));
        }
        CMfxRule* pNone = nullptr;
        module.Call("DeleteRule", &pNone);
        CStringList modules;
        modules.AddTail(L"Materials");
        module.Call("SetDBModuleList", &modules);
    }
    EXPECT_GT(before, 0u);
    EXPECT_LT(HeapBytesInUse(), before + kRounds) << "at least a byte is left per round";
    ExpectHostUntouched("rules");
}
