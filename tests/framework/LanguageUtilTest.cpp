#include "LanguageUtil.h"

#include "LocationHelper.h"

#include <gmock/gmock.h>

TEST(LanguageUtilTest, FindsTheWordForALanguage) {
    const struct {
        LANGID langId;
        const wchar_t* pszWord;
    } languages[] = {{1041, L"japanese"}, {1042, L"korean"},  {1036, L"french"},  {3084, L"french"},
                     {1033, L"english"},  {2052, L"chinese-simplified"}, {1028, L"english"}, {0, L"english"}};
    for (const auto& language : languages)
        EXPECT_EQ(CLanguageUtil::GetLanguageWord(language.langId), language.pszWord) << language.langId;
    EXPECT_THAT(CLanguageUtil::GetLanguageWords(),
                testing::ElementsAre(L"english", L"japanese", L"korean", L"french", L"chinese-simplified"));
}

TEST(LanguageUtilTest, TheSettingGoesBeforeTheSystem) {
    const CString strSystem = CLanguageUtil::GetLanguageWord(::GetSystemDefaultLangID());
    EXPECT_EQ(CLanguageUtil::GetMfxKitLang(), strSystem);
    CLanguageUtil::SetMfxKitLang(L"korean");
    EXPECT_EQ(CLanguageUtil::GetMfxKitLang(), L"korean");

    const CString strDefault = CLocationHelper::GetDefaultResPath();
    EXPECT_EQ(strDefault.Right(13), L"\\lang\\english");
    EXPECT_EQ(CLocationHelper::GetLocalizedResPath(), strDefault.Left(strDefault.GetLength() - 7) + L"korean");
    CLanguageUtil::SetMfxKitLang(L"");
    EXPECT_EQ(CLanguageUtil::GetMfxKitLang(), strSystem);
}
