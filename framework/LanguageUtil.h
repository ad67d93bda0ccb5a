#pragma once

#include "MfxKitExport.h"

#include <afx.h>

#include <vector>

// The user's language. A language word names a folder below lang: "english", "japanese", "korean", "french",
// "chinese-simplified".
class MFXKIT_API CLanguageUtil {
  public:
    // The language that was set, or the one of the system.
    static CString GetMfxKitLang();

    // Sets the language for the process, before modules are loaded; an empty word goes back to the system's.
    static void SetMfxKitLang(const CString& strLanguage);

    // The word for a Windows language id (1041 is "japanese"); "english" for all that have none.
    static CString GetLanguageWord(LANGID langId);

    // All words, English first.
    static std::vector<CString> GetLanguageWords();
};
