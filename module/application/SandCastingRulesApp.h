#pragma once

#include <afxcoll.h>
#include <afxwin.h>

#include <unordered_map>

// The module's application object. At load it opens the resource library of the user's language and that of
// the default language (MFXSandCastingRulesResu.dll in the folders of CLocationHelper); at unload it frees
// both.
class CMFXSandCastingRulesApp : public CWinApp {
  public:
    CMFXSandCastingRulesApp();

    BOOL InitInstance() override;
    int ExitInstance() override;

    // String of the default-language resource library; empty when there is none.
    const CString& LoadDefaultLanguageString(UINT nStringId) const;

    // String of the resource library in the user's language; empty when there is none.
    const CString& LoadLocalizedString(UINT nStringId) const;

    CString GetLanguage() const;

    // The language word of the user's option in the registry; without the option, that of the system's
    // language. Start-up does not use it: there the host's setting decides.
    static CString GetRegistryLanguage();

    // Code of m_strLanguageCode for the locale lookup: "zh_CN" and the like for Chinese, the word itself for
    // Japanese, Korean and French, otherwise "english".
    CString GetLocaleCode() const;

    HINSTANCE m_hPrevResource = nullptr;   // resource handle from before start-up
    HINSTANCE m_hResDll = nullptr;         // localized resource library, null when neither copy opened
    HINSTANCE m_hDefaultResDll = nullptr;  // default-language resource library
    CString m_strLanguageCode;             // not set by start-up
    CString m_strResPath;                  // folder that m_hResDll was opened from
    CString m_strResDllPath;               // full path of m_hResDll
    CStringList m_dbModuleList{10};        // names of the database modules
    CString m_strHelpPath;                 // full path of the help file
    CString m_strLanguage;                 // language word; "english" after a fall-back
    CString m_strImportFolder;             // folder of the workbook that was imported last

  private:
    // Strings that were loaded before; rules ask for the same few again and again.
    using StringCache = std::unordered_map<UINT, CString>;

    void OpenResourceLibraries();

    mutable StringCache m_localizedStrings;
    mutable StringCache m_defaultStrings;
};

// The application object between its start-up and its shut-down, null outside.
extern CMFXSandCastingRulesApp* g_pSandCastingRulesApp;

// The strings of the application object; empty while there is none.
const CString& LoadLocalizedString(UINT nStringId);
const CString& LoadDefaultLanguageString(UINT nStringId);

// Full path of the help file; empty while there is no application object.
const CString& GetHelpFilePath();
