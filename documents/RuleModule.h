#pragma once

#include "MfxRule.h"
#include "MfxXMLDocument.h"

#include "LibraryPtr.h"

#include <memory>
#include <string>
#include <vector>

// Hands a rule back to the module that made it.
struct RuleDeleter {
    void (*deleteRule)(CMfxRule** rule) = nullptr;
    void operator()(CMfxRule* rule) const { deleteRule(&rule); }
};
using RulePtr = std::unique_ptr<CMfxRule, RuleDeleter>;

// A rules module, loaded by name and used through its seven exports and the texts beside it. It must
// outlive its rules.
class RuleModule {
  public:
    // Loads the sand casting module from the program's folder. Throws DocumentError (ComponentMissing) that
    // names the file, or the export, that is missing.
    RuleModule();

    CString GetName() const;
    CString GetSummary() const;

    // Path of the library with the texts in the user's language when that is missing or damaged: the texts
    // are then in the default language. Otherwise empty.
    const CString& GetMissingLanguageLibrary() const { return m_strMissingLanguageLibrary; }

    // A fresh instance of every rule.
    std::vector<RulePtr> CreateAllRules() const;

    // A fresh instance of one rule; null for an id that is none.
    RulePtr CreateDefault(int ruleId) const;

    // The rule of a saved record; null when the record is not the module's or names no rule of it.
    RulePtr CreateRule(MfxXMLNode& record) const;

    // Tells the module what database libraries are loaded, by their names for users.
    void SetDatabaseModules(const std::vector<CString>& names) const;

    // The document in which the module's rules write their records from now on; null for none.
    void SetDocument(MfxXMLDocument* document) const;

  private:
    std::vector<LibraryPtr> LoadResourceLibraries();
    template <class Function>
    void FindExport(Function*& function, const char* name) const;
    RulePtr Adopt(CMfxRule* rule) const;

    CString m_strMissingLanguageLibrary;
    LibraryPtr m_pLibrary;
    CString m_strPath;
    void (*m_setXmlDoc)(MfxXMLDocument*) = nullptr;
    void (*m_setDbModuleList)(CStringList&) = nullptr;
    void (*m_getModuleName)(CString&) = nullptr;
    void (*m_getModuleSummary)(CString&) = nullptr;
    void (*m_getAllRules)(MfxRuleArray&) = nullptr;
    void (*m_getRule)(MfxXMLNode*, CMfxRule**) = nullptr;
    void (*m_deleteRule)(CMfxRule**) = nullptr;
};
