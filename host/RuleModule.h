#pragma once

#include "LibraryPtr.h"
#include "MfxRule.h"
#include "MfxXMLDocument.h"

#include <memory>
#include <vector>

// Hands a rule back to the module that made it.
struct RuleDeleter {
    void (*deleteRule)(CMfxRule** ppRule) = nullptr;
    void operator()(CMfxRule* pRule) const { deleteRule(&pRule); }
};
using RulePtr = std::unique_ptr<CMfxRule, RuleDeleter>;

// A rules module, loaded by name and used through its seven exports and the texts beside it. Its rules have
// to be gone before it is.
class RuleModule {
  public:
    // Loads the sand casting module from the program's folder. Throws HostError (Missing) that names the
    // file, or the export, that is missing.
    RuleModule();

    CString GetName() const;
    CString GetSummary() const;

    // A fresh instance of every rule.
    std::vector<RulePtr> CreateAllRules() const;

    // The rule of a saved record; null when the record is not the module's or names no rule of it.
    RulePtr CreateRule(MfxXMLNode& record) const;

    // The document in which the module's rules write their records from now on; null for none.
    void SetDocument(MfxXMLDocument* pDocument) const;

  private:
    RulePtr Adopt(CMfxRule* pRule) const;

    LibraryPtr m_pLibrary;
    CString m_strPath;
    void (*m_setXmlDoc)(MfxXMLDocument*) = nullptr;
    void (*m_setDbModuleList)(CStringList&) = nullptr;  // nothing here asks for it yet
    void (*m_getModuleName)(CString&) = nullptr;
    void (*m_getModuleSummary)(CString&) = nullptr;
    void (*m_getAllRules)(MfxRuleArray&) = nullptr;
    void (*m_getRule)(MfxXMLNode*, CMfxRule**) = nullptr;
    void (*m_deleteRule)(CMfxRule**) = nullptr;
};
