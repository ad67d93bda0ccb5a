// Texts of the module's resource library by the user's language, also for programs that have not loaded the
// module. Each call opens the library: for messages, not for loops.
#pragma once

#include <afx.h>

// In the user's language, or else in the default language. Empty when both libraries are missing.
CString LoadModuleText(UINT nStringId);

// A string whose inserts are all texts ("%s").
template <class... Inserts>
CString FormattedText(UINT nStringId, const Inserts&... inserts) {
    CString strText;
    strText.Format(LoadModuleText(nStringId), inserts.GetString()...);
    return strText;
}
