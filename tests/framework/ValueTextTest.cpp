#include "ValueText.h"

#include "SampleValues.h"

namespace {

template <class T>
class ValueTextTypedTest : public ::testing::Test {};
TYPED_TEST_SUITE(ValueTextTypedTest, ValueTypes);

template <class T>
T Read(const CString& strText) {
    T value = SampleValues<T>().front();
    FromText(strText, value);
    return value;
}

}  // namespace

TYPED_TEST(ValueTextTypedTest, ReadsBackExactly) {
    const auto samples = SampleValues<TypeParam>();
    TypeParam fromText = samples.back(), fromRow = samples.back();
    for (const TypeParam& sample : samples) {
        const CString strText = ToText(sample);
        SCOPED_TRACE(strText);
        FromText(strText, fromText);
        EXPECT_TRUE(IsSame(fromText, sample));
        FromRow(ToRow(sample), fromRow);
        EXPECT_TRUE(IsSame(fromRow, sample));
    }
}

TEST(ValueTextTest, HasItsDocumentedForms) {
    EXPECT_EQ(ToText(true) + ToText(false), L"10");
    EXPECT_EQ(ToText(std::int32_t{-5}) + ToText(INT64_MAX), L"-59223372036854775807");
    EXPECT_EQ(ToText(0.1), L"0.1");
    EXPECT_EQ(ToText(MfxDoublePair{0.5, 1e-300}), L"0.5;1e-300");
    EXPECT_EQ(ToText(MfxTextList{{L"a", L"b;c", L"\\"}}), L"a;b\\;c;\\\\;");
    EXPECT_EQ(ToText(MfxTableRow{{L"a", L""}}), L"a;;");
    EXPECT_EQ(ToRow(CString(L"a;b")), MfxTableRow{{L"a;b"}});
}

TEST(ValueTextTest, ReadsTextsTypedByHand) {
    EXPECT_EQ(Read<MfxTextList>(L"word").texts, (std::vector<CString>{L"word"}));
    EXPECT_EQ(Read<MfxTextList>(L"a;b\\").texts, (std::vector<CString>{L"a", L"b\\"}));
    EXPECT_EQ(Read<MfxTableRow>(L"a;\\;").cells, (std::vector<CString>{L"a", L";"}));
    EXPECT_EQ(Read<MfxDoublePair>(L"1; 2"), (MfxDoublePair{1, 2}));
    EXPECT_EQ(Read<MfxDoublePair>(L"x;2"), (MfxDoublePair{0, 2}));
    EXPECT_EQ(Read<MfxDoublePair>(L"3"), (MfxDoublePair{3, 0}));
    EXPECT_TRUE(Read<bool>(L"2"));

    CString strCells;
    FromRow(MfxTableRow{{L"a;", L"b"}}, strCells);
    EXPECT_EQ(strCells, L"a\\;;b;") << "several cells as one text lose nothing";
}

TYPED_TEST(ValueTextTypedTest, TextThatIsNoValueGivesTheEmptyOne) {
    EXPECT_TRUE(IsSame(Read<TypeParam>(L""), TypeParam{}));
    if constexpr (std::is_arithmetic_v<TypeParam> || std::is_same_v<TypeParam, MfxDoublePair>)
        EXPECT_TRUE(IsSame(Read<TypeParam>(L"abc"), TypeParam{}));
}
