// The functions through which hosts use the module. Their names are undecorated (MFXSandCastingRules.def),
// and no exception leaves them.

#include "MfxRule.h"
#include "MfxXMLDocument.h"
#include "NoThrow.h"
#include "ResourceSwitch.h"
#include "RuleFactory.h"
#include "RuleRecord.h"
#include "SandCastingRulesApp.h"
#include "resource.h"

// Sets the document in which rules write their records; it stays the host's and has to outlive every write.
extern "C" void SetXMLDoc(MfxXMLDocument* pDocument) {
    SetRuleDocument(pDocument);
}

// Replaces the list of database modules by a copy of the given one.
extern "C" void SetDBModuleList(CStringList& modules) {
    NoThrow([&] {
        if (!g_pSandCastingRulesApp) return;
        CStringList& own = g_pSandCastingRulesApp->m_dbModuleList;
        own.RemoveAll();
        for (POSITION pos = modules.GetHeadPosition(); pos;) own.AddTail(modules.GetNext(pos));
    });
}

// The module's name in the user's language.
extern "C" void GetModuleName(CString& strName) {
    NoThrow([&] {
        const ResourceSwitch resources;
        strName = LoadLocalizedString(IDS_MODULE_NAME);
    });
}

// What the module does, in one line in the user's language.
extern "C" void GetModuleSummary(CString& strSummary) {
    NoThrow([&] {
        const ResourceSwitch resources;
        strSummary = LoadLocalizedString(IDS_MODULE_SUMMARY);
    });
}

// Appends a fresh instance of every rule; the host owns them and hands each to DeleteRule.
extern "C" void GetAllRules(MfxRuleArray& rules) {
    NoThrow([&] {
        if (!g_pSandCastingRulesApp) return;
        const ResourceSwitch resources;
        AppendAllRules(rules);
    });
}

// Creates the rule that a saved "Rule" record describes and populates it; the host owns it. A rule that the
// host passes in is only populated. A record of another module or of an unknown rule creates nothing.
extern "C" void GetRule(MfxXMLNode* pRecord, CMfxRule** ppRule) {
    NoThrow([&] {
        if (!pRecord || !ppRule) return;
        const ResourceSwitch resources;
        if (!IsRecordOfThisModule(*pRecord)) return;
        if (*ppRule)
            PrepareForRecord(**ppRule);
        else
            *ppRule = CreateRuleForRecord(*pRecord);
        if (*ppRule) (*ppRule)->PopulateFromXML(pRecord);
    });
}

// Destroys a rule and sets the host's pointer to null.
extern "C" void DeleteRule(CMfxRule** ppRule) {
    NoThrow([&] {
        if (!ppRule) return;
        delete *ppRule;
        *ppRule = nullptr;
    });
}
