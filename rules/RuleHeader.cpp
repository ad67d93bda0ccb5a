#include "RuleHeader.h"

#include "SandCastingRulesApp.h"

void SetRuleHeader(CMfxRule& rule, UINT nNameStringId, const CString& strProcess, const CString& strModule,
                   MFXRuleCategory_e category, int nRuleId) {
    rule.m_strDisplayName = LoadLocalizedString(nNameStringId);
    rule.m_strName = LoadDefaultLanguageString(nNameStringId);
    rule.m_strModule = strModule;
    rule.m_processList.AddTail(strProcess);
    rule.m_nSeverity = 2;
    rule.m_nStatus = 0;
    rule.m_nRuleId = nRuleId;
    rule.SetRuleCategory(category);
}
