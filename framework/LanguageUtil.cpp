#include "LanguageUtil.h"

namespace {

constexpr wchar_t kEnglish[] = L"english";

struct LanguageId {
    LANGID langId;
    const wchar_t* pszWord;
};

constexpr LanguageId kLanguageIds[] = {
    {1041, L"japanese"},           {1042, L"korean"}, {1036, L"french"}, {3084, L"french"},
    {2052, L"chinese-simplified"},
};

CString& LanguageSetting() {
    static CString strLanguage;
    return strLanguage;
}

}  // namespace

CString CLanguageUtil::GetMfxKitLang() {
    return LanguageSetting().IsEmpty() ? GetLanguageWord(GetSystemDefaultLangID()) : LanguageSetting();
}

void CLanguageUtil::SetMfxKitLang(const CString& strLanguage) {
    LanguageSetting() = strLanguage;
}

CString CLanguageUtil::GetLanguageWord(LANGID langId) {
    for (const LanguageId& language : kLanguageIds)
        if (language.langId == langId) return language.pszWord;
    return kEnglish;
}

std::vector<CString> CLanguageUtil::GetLanguageWords() {
    std::vector<CString> words{kEnglish};
    for (const LanguageId& language : kLanguageIds)
        if (words.back() != language.pszWord) words.emplace_back(language.pszWord);
    return words;
}
