// The module as a host uses it: loaded by its name, through its exports alone.

#include "MfxXMLDocument.h"
#include "support/LoadedModule.h"
#include "support/MessageBoxRecorder.h"

#include <gmock/gmock.h>

#include <array>

namespace {

constexpr wchar_t kModuleName[] = L"MFXSandCastingRulesValidator";
constexpr int kRuleIds[] = {19010, 19020, 19040, 19030};  // in the module's order
constexpr int kVariationId = 19030;

using NodePtr = std::unique_ptr<MfxXMLNode>;
using testing::ElementsAre;

struct ExportsTest : testing::Test {
    // A record with a name and a module, null for none.
    NodePtr Record(LPCWSTR pszName, LPCWSTR pszModule) {
        NodePtr pRecord(m_document.CreateNode(L"Rule"));
        if (pszName) pRecord->AddAttribute(L"Name", pszName);
        if (pszModule) pRecord->AddAttribute(L"Module", pszModule);
        return pRecord;
    }

    MessageBoxRecorder m_boxes;
    MfxXMLDocument m_document;
    const LoadedModule m_module{L"french"};
};

struct CSeenRule : CMfxRule {
    void PopulateFromXML(MfxXMLNode* pNode) override {
        EXPECT_NE(AfxGetResourceHandle(), LoadedModule::HostResources());
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
    const auto* pImage = reinterpret_cast<const char*>(m_module.GetHandle());
    const auto* pDos = reinterpret_cast<const IMAGE_DOS_HEADER*>(pImage);
    const auto* pHeaders = reinterpret_cast<const IMAGE_NT_HEADERS*>(pImage + pDos->e_lfanew);
    const auto& directory = pHeaders->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* pExports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(pImage + directory.VirtualAddress);
    EXPECT_EQ(pExports->NumberOfFunctions, 7u);
    for (const char* const pszName : {"SetXMLDoc", "SetDBModuleList", "GetModuleName", "GetModuleSummary",
                                      "GetAllRules", "GetRule", "DeleteRule"})
        EXPECT_TRUE(GetProcAddress(m_module.GetHandle(), pszName)) << pszName;
}

TEST_F(ExportsTest, GetAllRulesAppendsToTheHostsArray) {
    CMfxRule own;
    MfxRuleArray rules(1, 1);
    rules.Add(&own);
    m_module.Call("GetAllRules", &rules);
    ASSERT_EQ(rules.m_nCount, 1 + static_cast<int>(std::size(kRuleIds)));
    EXPECT_EQ(rules[0], &own);
    for (int i = 1; i < rules.m_nCount; ++i) {
        const LoadedModule::RulePtr pRule(rules[i], {&m_module});
        EXPECT_EQ(pRule->GetRuleId(), kRuleIds[i - 1]);
        EXPECT_FALSE(pRule->m_bPopulated);
    }
}

TEST_F(ExportsTest, GetRuleFindsRulesByTheirDefaultName) {
    for (const auto& pFresh : m_module.GetAllRules()) {
        const CString strName = pFresh->m_strName, strUpper = CString(strName).MakeUpper();
        const struct {
            LPCWSTR pszName, pszModule;
            bool bFound;
        } kCases[] = {{strName, kModuleName, true},
                      {strUpper, L"mfxsandcastingRULESvalidator", true},
                      {pFresh->m_strDisplayName, kModuleName, false},
                      {nullptr, kModuleName, false},
                      {strName, L"Other", false},
                      {strName, nullptr, false}};
        for (const auto& [pszName, pszModule, bFound] : kCases) {
            SCOPED_TRACE(testing::Message() << pszName << ", " << pszModule);
            const auto pRule = m_module.GetRule(Record(pszName, pszModule).get());
            ASSERT_EQ(pRule != nullptr, bFound);
            if (!bFound) continue;
            EXPECT_EQ(pRule->GetRuleId(), pFresh->GetRuleId());
            // A record without the variation leaves that rule as it is.
            EXPECT_EQ(pRule->m_bPopulated, pRule->GetRuleId() != kVariationId);
        }
    }
}

TEST_F(ExportsTest, RuleThatIsAlreadyThereIsPopulated) {
    const NodePtr pKnown = Record(L"Uniform Wall Thickness", kModuleName),
                  pUnknown = Record(L"No rule", kModuleName),
                  pForeign = Record(L"Uniform Wall Thickness", L"Other"), pNull;
    CSeenRule rule;
    CMfxRule* pRule = &rule;
    for (const NodePtr* pRecord : {&pKnown, &pUnknown, &pForeign, &pNull}) {
        EXPECT_NO_THROW(m_module.Call("GetRule", pRecord->get(), &pRule));
        EXPECT_EQ(pRule, &rule);
    }
    EXPECT_THAT(rule.seen, ElementsAre(pKnown.get(), pUnknown.get()));
}

TEST_F(ExportsTest, ThousandsOfRulesLeaveNoMemoryBehind) {
    constexpr int kWarmUpRounds = 300, kRounds = 4000;
    std::size_t before = 0;
    for (int i = 0; i < kWarmUpRounds + kRounds; ++i) {
        if (i == kWarmUpRounds) before = HeapBytesInUse();
        MfxXMLDocument document;
        for (const auto& pRule : m_module.GetAllRules()) {
            m_module.Call("SetXMLDoc", &document);
            const NodePtr pRecord(pRule->BuildXMLNode());
            ASSERT_TRUE(m_module.GetRule(pRecord.get()));
            m_module.Call("SetXMLDoc", static_cast<MfxXMLDocument*>(nullptr));
            ASSERT_FALSE(NodePtr(pRule->BuildXMLNode()));
        }
        CMfxRule* pNone = nullptr;
        m_module.Call("DeleteRule", &pNone);
        CStringList modules;
        modules.AddTail(L"Materials");
        m_module.Call("SetDBModuleList", &modules);
    }
    EXPECT_GT(before, 0u);
    EXPECT_LT(HeapBytesInUse(), before + kRounds) << "at least a byte is left per round";
}
