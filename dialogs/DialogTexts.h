// Texts of dialogs in the user's language.
#pragma once

#include "ModuleText.h"
#include "SandCastingRulesApp.h"

// "Size (mm)"; the string ends with what stands between it and the parenthesis.
inline CString HeadingWithUnit(UINT nStringId, const CString& strUnit) {
    return LoadLocalizedString(nStringId) + L"(" + strUnit + L")";
}
