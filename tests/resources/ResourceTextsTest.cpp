#include "LanguageUtil.h"
#include "LocationHelper.h"

#include <gmock/gmock.h>

#include <map>
#include <regex>

namespace {

using Texts = std::map<UINT, std::wstring>;
constexpr UINT kStringIds[] = {MFX_STRING_IDS};

// A block holds 16 strings, each a length and its characters; one that is missing has length 0.
BOOL CALLBACK ReadBlock(HMODULE hLibrary, LPCWSTR pszType, LPWSTR pszBlock, LONG_PTR pTexts) {
    const HGLOBAL hBlock = LoadResource(hLibrary, FindResourceW(hLibrary, pszBlock, pszType));
    const auto* pText = static_cast<const wchar_t*>(LockResource(hBlock));
    const UINT nEnd = static_cast<UINT>(reinterpret_cast<ULONG_PTR>(pszBlock)) * 16;
    for (UINT nId = nEnd - 16; nId < nEnd; pText += 1 + *pText, ++nId)
        if (*pText) (*reinterpret_cast<Texts*>(pTexts))[nId].assign(pText + 1, *pText);
    return TRUE;
}

Texts ReadTexts(const CString& strLanguage) {
    CLanguageUtil::SetMfxKitLang(strLanguage);
    const CString strPath = CLocationHelper::GetLocalizedResPath() + L"\\MFXSandCastingRulesResu.dll";
    const HMODULE hLibrary = LoadLibraryExW(strPath, nullptr, LOAD_LIBRARY_AS_DATAFILE);
    Texts texts;
    EnumResourceNamesW(hLibrary, RT_STRING, ReadBlock, reinterpret_cast<LONG_PTR>(&texts));
    FreeLibrary(hLibrary);
    return texts;
}

// "%s", "%5.2lf" and the like, in their order.
std::vector<std::wstring> InsertsOf(const std::wstring& text) {
    static const std::wregex insert(L"%[-+#0-9.*]*(?:hh|h|ll|l|I64)?[A-Za-z%]");
    return {std::wsregex_token_iterator(text.begin(), text.end(), insert), {}};
}

}  // namespace

TEST(ResourceTextsTest, EveryLanguageHasEveryTextWithTheSameInserts) {
    Texts english = ReadTexts(L"english");
    for (const CString& strLanguage : CLanguageUtil::GetLanguageWords()) {
        SCOPED_TRACE(testing::Message() << strLanguage.GetString());
        std::vector<UINT> ids;
        for (const auto& [nId, text] : ReadTexts(strLanguage)) {
            ids.push_back(nId);
            EXPECT_NE(text.find_first_not_of(L" \t\r\n\u00a0\u3000"), std::wstring::npos)
                << nId << " is blank";
            EXPECT_EQ(InsertsOf(text), InsertsOf(english[nId])) << nId;
        }
        EXPECT_THAT(ids, testing::UnorderedElementsAreArray(kStringIds));
    }
}
