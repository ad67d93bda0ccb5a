// Texts of dialogs in the user's language.
#pragma once

#include "SandCastingRulesApp.h"

// A string whose inserts are all texts ("%s").
template <class... Inserts>
CString FormattedText(UINT nStringId, const Inserts&... inserts) {
    CString strText;
    strText.Format(LoadLocalizedString(nStringId), inserts.GetString()...);
    return strText;
}

// "Size (mm)"; the string ends with what stands between it and the parenthesis.
inline CString HeadingWithUnit(UINT nStringId, const CString& strUnit) {
    return LoadLocalizedString(nStringId) + L"(" + strUnit + L")";
}
