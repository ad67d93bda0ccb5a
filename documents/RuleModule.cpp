#include "RuleModule.h"

#include "DocumentError.h"
#include "LocationHelper.h"
#include "ModulePath.h"
#include "ResourceLibrary.h"
#include "Text.h"

namespace {

constexpr wchar_t kModuleFile[] = L"MFXSandCastingRulesu.dll";

[[noreturn]] void ThrowMissing(const CString& path, const std::string& reason) {
    throw DocumentError(DocumentError::Kind::ComponentMissing, ToUtf8(path) + reason);
}

}  // namespace

RuleModule::RuleModule() : m_strPath(GetModuleFolder(nullptr) + L"\\" + kModuleFile) {
    // They stay loaded until the module has loaded them, too: mapping them twice would take time.
    const std::vector<LibraryPtr> resources = LoadResourceLibraries();
    m_pLibrary = LoadLibraryAt(m_strPath);
    if (!m_pLibrary)
        ThrowMissing(m_strPath,
                     " can't be loaded, install the program again: " + WindowsErrorText(GetLastError()));
    FindExport(m_setXmlDoc, "SetXMLDoc");
    FindExport(m_setDbModuleList, "SetDBModuleList");
    FindExport(m_getModuleName, "GetModuleName");
    FindExport(m_getModuleSummary, "GetModuleSummary");
    FindExport(m_getAllRules, "GetAllRules");
    FindExport(m_getRule, "GetRule");
    FindExport(m_deleteRule, "DeleteRule");
}

// The module falls back silently from a missing language. Without the default language no record's rule name
// can be recognised.
std::vector<LibraryPtr> RuleModule::LoadResourceLibraries() {
    const CString defaultLibrary = CLocationHelper::GetDefaultResPath() + L"\\" + kResourceLibraryFile;
    const CString localizedLibrary = CLocationHelper::GetLocalizedResPath() + L"\\" + kResourceLibraryFile;
    std::vector<LibraryPtr> libraries;
    for (const CString& path : {defaultLibrary, localizedLibrary})
        libraries.emplace_back(LoadLibraryW(path));  // as the module loads them
    if (!libraries[0]) ThrowMissing(defaultLibrary, " is missing or damaged; install the program again");
    if (!libraries[1]) m_strMissingLanguageLibrary = localizedLibrary;
    return libraries;
}

template <class Function>
void RuleModule::FindExport(Function*& function, const char* name) const {
    const FARPROC address = GetProcAddress(m_pLibrary.get(), name);
    if (!address) ThrowMissing(m_strPath, std::string(" has no export ") + name);
    function = reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(address));
}

CString RuleModule::GetName() const {
    CString name;
    m_getModuleName(name);
    return name;
}

CString RuleModule::GetSummary() const {
    CString summary;
    m_getModuleSummary(summary);
    return summary;
}

// A module name that the record has is kept.
RulePtr RuleModule::Adopt(CMfxRule* rule) const {
    if (rule && rule->m_strRuleModule.IsEmpty())
        rule->m_strRuleModule = CString(kModuleFile).SpanExcluding(L".");
    if (rule && rule->m_strRuleModuleFileName.IsEmpty()) rule->m_strRuleModuleFileName = m_strPath;
    return RulePtr(rule, RuleDeleter{m_deleteRule});
}

std::vector<RulePtr> RuleModule::CreateAllRules() const {
    MfxRuleArray created;
    m_getAllRules(created);
    std::vector<RulePtr> rules;
    for (CMfxRule* rule : created) rules.push_back(Adopt(rule));
    return rules;
}

// The module's exports make all rules, or that of a record.
RulePtr RuleModule::CreateDefault(int ruleId) const {
    for (RulePtr& rule : CreateAllRules())
        if (rule->GetRuleId() == ruleId) return std::move(rule);
    return nullptr;
}

RulePtr RuleModule::CreateRule(MfxXMLNode& record) const {
    CMfxRule* rule = nullptr;
    m_getRule(&record, &rule);
    return Adopt(rule);
}

void RuleModule::SetDatabaseModules(const std::vector<CString>& names) const {
    CStringList list;
    for (const CString& name : names) list.AddTail(name);
    m_setDbModuleList(list);
}

void RuleModule::SetDocument(MfxXMLDocument* document) const {
    m_setXmlDoc(document);
}
