#include "RuleModule.h"

#include "HostError.h"
#include "LocationHelper.h"
#include "ProgramFolder.h"
#include "Text.h"

namespace {

constexpr wchar_t kModuleFile[] = L"MFXSandCastingRulesu.dll";
constexpr wchar_t kResourceFile[] = L"\\MFXSandCastingRulesResu.dll";

bool IsLibrary(const CString& strPath) {
    return LibraryPtr(LoadLibraryExW(strPath, nullptr, LOAD_LIBRARY_AS_DATAFILE)) != nullptr;
}

// The module falls back silently from a missing language; a user who asked for it should know. Without the
// default language no record's rule name can be recognised.
void CheckResourceLibraries() {
    const CString strDefault = CLocationHelper::GetDefaultResPath() + kResourceFile;
    const CString strLocalized = CLocationHelper::GetLocalizedResPath() + kResourceFile;
    if (!IsLibrary(strDefault))
        throw HostError(ExitCode::Missing,
                        ToUtf8(strDefault) + " is missing or damaged; install the program again");
    if (!IsLibrary(strLocalized))
        PrintError("mfxhost: " + ToUtf8(strLocalized) + " is missing or damaged; the texts are in English\n");
}

}  // namespace

RuleModule::RuleModule() : m_strPath(GetProgramFolder() + L"\\" + kModuleFile) {
    CheckResourceLibraries();
    m_pLibrary.reset(LoadLibraryExW(m_strPath, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!m_pLibrary)
        throw HostError(ExitCode::Missing, ToUtf8(m_strPath) +
                                               " can't be loaded, install the program again: " +
                                               WindowsErrorText(GetLastError()));

    const auto find = [this](auto& function, const char* name) {
        const FARPROC address = GetProcAddress(m_pLibrary.get(), name);
        if (!address) throw HostError(ExitCode::Missing, ToUtf8(m_strPath) + " has no export " + name);
        function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(
            reinterpret_cast<void (*)()>(address));
    };
    find(m_setXmlDoc, "SetXMLDoc");
    find(m_setDbModuleList, "SetDBModuleList");
    find(m_getModuleName, "GetModuleName");
    find(m_getModuleSummary, "GetModuleSummary");
    find(m_getAllRules, "GetAllRules");
    find(m_getRule, "GetRule");
    find(m_deleteRule, "DeleteRule");
}

CString RuleModule::GetName() const {
    CString strName;
    m_getModuleName(strName);
    return strName;
}

CString RuleModule::GetSummary() const {
    CString strSummary;
    m_getModuleSummary(strSummary);
    return strSummary;
}

// What a record says of the rule's module stays.
RulePtr RuleModule::Adopt(CMfxRule* pRule) const {
    if (pRule && pRule->m_strRuleModule.IsEmpty())
        pRule->m_strRuleModule = CString(kModuleFile).SpanExcluding(L".");
    if (pRule && pRule->m_strRuleModuleFileName.IsEmpty()) pRule->m_strRuleModuleFileName = m_strPath;
    return RulePtr(pRule, RuleDeleter{m_deleteRule});
}

std::vector<RulePtr> RuleModule::CreateAllRules() const {
    MfxRuleArray created;
    m_getAllRules(created);
    std::vector<RulePtr> rules;
    for (CMfxRule* pRule : created) rules.push_back(Adopt(pRule));
    return rules;
}

RulePtr RuleModule::CreateRule(MfxXMLNode& record) const {
    CMfxRule* pRule = nullptr;
    m_getRule(&record, &pRule);
    return Adopt(pRule);
}

void RuleModule::SetDocument(MfxXMLDocument* pDocument) const {
    m_setXmlDoc(pDocument);
}
