#include "ValueText.h"

#include <gmock/gmock.h>

namespace {

// A value's reading must not depend on what the value was.
template <class T>
T Read(const CString& strText, T value) {
    FromText(strText, value);
    return value;
}

}  // namespace

TEST(ValueTextTest, HasItsDocumentedForms) {
    EXPECT_EQ(ToText(true) + ToText(false) + ToText(std::int32_t{-5}) + ToText(0.1), L"10-50.1");
    EXPECT_EQ(ToText(MfxDoublePair{0.5, 1e-300}), L"0.5;1e-300");
    EXPECT_EQ(ToText(MfxTextList{{L"a", L"b;c", L"\\", L""}}), L"a;b\\;c;\\\\;;");
    EXPECT_EQ(ToRow(CString(L"a;b")), MfxTableRow{{L"a;b"}});
    CString strCells;
    FromRow(MfxTableRow{{L"a;", L"b"}}, strCells);
    EXPECT_EQ(strCells, L"a\\;;b;") << "several cells as one text lose nothing";
}

TEST(ValueTextTest, ReadsOtherTexts) {
    const MfxTextList old{{L"old"}};
    EXPECT_EQ(Read(L"word", old), MfxTextList{{L"word"}}) << "as typed by hand";
    EXPECT_EQ(Read(L"a;b\\", old), (MfxTextList{{L"a", L"b\\"}}));
    EXPECT_EQ(Read(L"", old), MfxTextList{});
    EXPECT_EQ(Read(L"x; 2", MfxDoublePair{8, 9}), (MfxDoublePair{0, 2}));
    EXPECT_EQ(Read(L"3", MfxDoublePair{8, 9}), (MfxDoublePair{3, 0}));
    EXPECT_TRUE(Read(L"2", false) && !Read(L"abc", true));
    EXPECT_TRUE(Read(L"abc", 9.0) == 0 && Read(L"", std::int32_t{9}) == 0 &&
                Read(L"x", std::int64_t{9}) == 0);
}
