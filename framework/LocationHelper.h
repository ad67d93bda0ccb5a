#pragma once

#include "MfxKitExport.h"

#include <afx.h>

// Where the installation keeps its language folders: lang\<language>, beside the folder of this library.
// The paths have no backslash at their end.
class MFXKIT_API CLocationHelper {
  public:
    // Folder of the resource libraries for the user's language (CLanguageUtil::GetMfxKitLang).
    static CString GetLocalizedResPath();

    // Folder of the resource libraries for the default language, English.
    static CString GetDefaultResPath();
};
