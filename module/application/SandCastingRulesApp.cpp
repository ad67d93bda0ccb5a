#include "SandCastingRulesApp.h"

#include "LanguageUtil.h"
#include "LocationHelper.h"
#include "ResourceLibrary.h"

CMFXSandCastingRulesApp* g_pSandCastingRulesApp = nullptr;

namespace {

constexpr wchar_t kHelpFile[] = L"\\mfxkit.chm";
const CString kNoText;
constexpr wchar_t kFallBackLanguage[] = L"english";

constexpr wchar_t kOptionsKey[] = L"SOFTWARE\\Quillmark\\KPT_PRODUCT\\MfxKit\\NX\\Add-in";
constexpr wchar_t kLanguageOption[] = L"OptionsLanguage";

const CString& LoadStringFrom(HINSTANCE hLibrary, UINT nStringId, std::unordered_map<UINT, CString>& cache) {
    if (const auto found = cache.find(nStringId); found != cache.end()) return found->second;
    CString strText;
    if (hLibrary) strText.LoadString(hLibrary, nStringId);  // a null handle would mean the host's strings
    return cache.emplace(nStringId, strText).first->second;
}

CString SystemLocaleName(LCTYPE type) {
    wchar_t szName[9] = L"";
    GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, type, szName, static_cast<int>(std::size(szName)));
    return szName;
}

}  // namespace

CMFXSandCastingRulesApp::CMFXSandCastingRulesApp() = default;

BOOL CMFXSandCastingRulesApp::InitInstance() {
    CWinApp::InitInstance();
    OpenResourceLibraries();
    g_pSandCastingRulesApp = this;
    return TRUE;
}

int CMFXSandCastingRulesApp::ExitInstance() {
    g_pSandCastingRulesApp = nullptr;
    if (m_hResDll) FreeLibrary(m_hResDll);
    if (m_hDefaultResDll) FreeLibrary(m_hDefaultResDll);
    m_hResDll = m_hDefaultResDll = nullptr;
    return CWinApp::ExitInstance();
}

void CMFXSandCastingRulesApp::OpenResourceLibraries() {
    m_hPrevResource = AfxGetResourceHandle();
    m_strResPath = CLocationHelper::GetLocalizedResPath();
    m_strLanguage = CLanguageUtil::GetMfxKitLang();
    m_strResDllPath = m_strResPath + L"\\" + kResourceLibraryFile;
    m_hResDll = LoadLibraryW(m_strResDllPath);

    const CString strDefaultFolder = CLocationHelper::GetDefaultResPath();
    if (!m_hResDll) {
        m_strResPath = strDefaultFolder;
        m_strResDllPath = strDefaultFolder + L"\\" + kResourceLibraryFile;
        m_hResDll = LoadLibraryW(m_strResDllPath);
        m_strLanguage = kFallBackLanguage;
    }
    // Opened also when it is the same file: the two handles are freed independently.
    m_hDefaultResDll = LoadLibraryW(strDefaultFolder + L"\\" + kResourceLibraryFile);

    m_strHelpPath = m_strResPath + kHelpFile;
    if (m_hResDll) AfxSetResourceHandle(m_hResDll);
}

const CString& CMFXSandCastingRulesApp::LoadDefaultLanguageString(UINT nStringId) const {
    return LoadStringFrom(m_hDefaultResDll, nStringId, m_defaultStrings);
}

const CString& CMFXSandCastingRulesApp::LoadLocalizedString(UINT nStringId) const {
    return LoadStringFrom(m_hResDll, nStringId, m_localizedStrings);
}

CString CMFXSandCastingRulesApp::GetLanguage() const {
    return m_strLanguage;
}

CString CMFXSandCastingRulesApp::GetRegistryLanguage() {
    auto dwOption = static_cast<DWORD>(-1);
    DWORD dwSize = sizeof dwOption;
    if (RegGetValueW(HKEY_CURRENT_USER, kOptionsKey, kLanguageOption, RRF_RT_REG_DWORD, nullptr, &dwOption,
                     &dwSize) != ERROR_SUCCESS)
        dwOption = static_cast<DWORD>(-1);  // a value of another type has been written to it
    switch (dwOption) {
        case 0:
            return L"english";
        case 1:
            return L"japanese";
        case 2:
            return L"korean";
        case 4:
            return L"french";
        // 3 has no language on purpose.
        default:
            return CLanguageUtil::GetLanguageWord(GetSystemDefaultLangID());
    }
}

CString CMFXSandCastingRulesApp::GetLocaleCode() const {
    if (m_strLanguageCode == L"chinese-simplified" || m_strLanguageCode == L"chinese")
        return SystemLocaleName(LOCALE_SISO639LANGNAME) + L"_" + SystemLocaleName(LOCALE_SISO3166CTRYNAME);
    if (m_strLanguageCode == L"japanese" || m_strLanguageCode == L"korean" || m_strLanguageCode == L"french")
        return m_strLanguageCode;
    return kFallBackLanguage;
}

const CString& LoadLocalizedString(UINT nStringId) {
    return g_pSandCastingRulesApp ? g_pSandCastingRulesApp->LoadLocalizedString(nStringId) : kNoText;
}

const CString& LoadDefaultLanguageString(UINT nStringId) {
    return g_pSandCastingRulesApp ? g_pSandCastingRulesApp->LoadDefaultLanguageString(nStringId) : kNoText;
}

const CString& GetHelpFilePath() {
    return g_pSandCastingRulesApp ? g_pSandCastingRulesApp->m_strHelpPath : kNoText;
}
