#include "LanguageUtil.h"

#include <gmock/gmock.h>

TEST(LanguageUtilTest, FindsTheUsersLanguage) {
    const std::pair<LANGID, const wchar_t*> languages[] = {
        {1041, L"japanese"},           {1042, L"korean"},  {1036, L"french"},  {3084, L"french"},
        {2052, L"chinese-simplified"}, {1033, L"english"}, {1028, L"english"}, {0, L"english"}};
    for (const auto& [langId, pszWord] : languages)
        EXPECT_EQ(CLanguageUtil::GetLanguageWord(langId), pszWord);
    EXPECT_THAT(CLanguageUtil::GetLanguageWords(),
                testing::ElementsAre(L"english", L"japanese", L"korean", L"french", L"chinese-simplified"));

    const CString strSystem = CLanguageUtil::GetLanguageWord(::GetSystemDefaultLangID());
    EXPECT_EQ(CLanguageUtil::GetMfxKitLang(), strSystem);
    CLanguageUtil::SetMfxKitLang(L"korean");
    EXPECT_EQ(CLanguageUtil::GetMfxKitLang(), L"korean");
    CLanguageUtil::SetMfxKitLang(L"");
    EXPECT_EQ(CLanguageUtil::GetMfxKitLang(), strSystem);
}
