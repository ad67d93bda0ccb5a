#pragma once

#include "MfxRule.h"

// What every rule of the module sets at construction: name (default language), display name (user's
// language), module, process, severity 2, status 0, rule id and category. Needs the application object.
void SetRuleHeader(CMfxRule& rule, UINT nNameStringId, const CString& strProcess, const CString& strModule,
                   MFXRuleCategory_e category, int nRuleId);
