#include "MassUnits.h"
#include "module/ModuleTestSupport.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>

namespace {

constexpr UINT kStringIds[] = {MFX_STRING_IDS};

// "%s", "%5.2lf" and the like, in their order.
std::vector<std::wstring> InsertsOf(const std::wstring& text) {
    static const std::wregex insert(L"%[-+#0-9.*]*(?:hh|h|ll|l|I64)?[A-Za-z%]");
    return {std::wsregex_token_iterator(text.begin(), text.end(), insert), {}};
}

}  // namespace

TEST(ResourceTextsTest, EveryLanguageHasEveryTextWithTheSameInserts) {
    for (const CString& strLanguage : CLanguageUtil::GetLanguageWords()) {
        SCOPED_TRACE(testing::Message() << strLanguage.GetString());
        const StartedApp app(strLanguage);
        EXPECT_STREQ(app.GetLanguage(), strLanguage);
        for (const UINT nId : kStringIds) {
            const std::wstring text = app.Text(nId);
            EXPECT_NE(text.find_first_not_of(L" \t\r\n\u00a0\u3000"), std::wstring::npos)
                << nId << " is blank";
            const CString strEnglish = app.LoadDefaultLanguageString(nId);
            EXPECT_EQ(InsertsOf(text), InsertsOf(strEnglish.GetString())) << nId;
        }
        // Records keep a label, whatever the language it was chosen in.
        for (const auto& [nMassUnit, nId] : std::map<int, UINT>{{MassMilligram, 29103},
                                                                {MassGram, 29101},
                                                                {MassKilogram, 29102},
                                                                {MassTonne, 29100},
                                                                {MassPound, 29109}})
            EXPECT_EQ(app.Text(nId), GetMassUnitLabel(nMassUnit).GetString());
    }
}
