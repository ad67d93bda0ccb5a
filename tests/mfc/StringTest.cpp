#include <afxwin.h>

#include <gtest/gtest.h>

#include <cstdarg>
#include <stdexcept>

#include "MfcTestIds.h"

namespace {

CString Formatted(LPCWSTR format, ...) {
    va_list args;
    va_start(args, format);
    CString text = L"before";
    text.FormatV(format, args);
    va_end(args);
    return text;
}

}  // namespace

TEST(StringTest, IsMadeFromAllKindsOfText) {
    EXPECT_EQ(CString(static_cast<LPCWSTR>(nullptr)), L"");
    EXPECT_EQ(CString(static_cast<LPCSTR>(nullptr)), L"");
    EXPECT_EQ(CString("narrow"), L"narrow");
    EXPECT_EQ(CString(L'x', 3), L"xxx");
    EXPECT_EQ(CString(L'x', -1), L"");
    EXPECT_EQ(CString(L"abc", 2), L"ab");

    CString text;
    text = "narrow";
    text += L'-';
    text = L"wide " + text + L" end" + L'.';
    EXPECT_EQ(text, L"wide narrow- end.");
    text = static_cast<LPCWSTR>(nullptr);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(StringTest, TakesPartsOfItself) {
    CString text = L"0123456789abcdef";
    for (int i = 0; i < 3; ++i) text += text;
    EXPECT_EQ(text.GetLength(), 128);
    text = text.GetString() + 118;
    EXPECT_EQ(text, L"6789abcdef");
    text.Append(text.GetString() + 8);
    EXPECT_EQ(text, L"6789abcdefef");
    text.Insert(1, text.GetString() + 10);
    EXPECT_EQ(text, L"6ef789abcdefef");
    EXPECT_EQ(text.Replace(text.GetString() + 12, text), 3);
    EXPECT_EQ(text.GetLength(), 14 + 3 * 12);
    text = L"abab";
    EXPECT_EQ(text.Trim(text.GetString() + 3), L"aba");
    EXPECT_EQ(text.Trim(text.GetString()), L"");
}

TEST(StringTest, Compares) {
    const CString text = L"abc";
    EXPECT_TRUE(text == L"abc" && L"abc" == text && text == CString("abc") && text != L"abd");
    EXPECT_TRUE(text < L"abd" && L"abb" < text && text > L"ab" && L"b" > text);
    EXPECT_TRUE(text <= L"abc" && L"abc" <= text && text >= L"abc" && L"abd" >= text);
    EXPECT_TRUE(CString(L"a") == L'a' && L'b' != CString(L"a"));
    EXPECT_EQ(text.CompareNoCase(L"ABC"), 0);
    EXPECT_LT(text.CompareNoCase(L"ABD"), 0);
    EXPECT_GT(text.Compare(nullptr), 0);
}

TEST(StringTest, ReachesSingleUnits) {
    CString text = L"abc";
    text.SetAt(1, L'x');
    EXPECT_EQ(text[1], L'x');
    EXPECT_EQ(text.GetAt(3), L'\0');
    EXPECT_THROW(text.GetAt(4), std::out_of_range);
    EXPECT_THROW(text.GetAt(-1), std::out_of_range);
    EXPECT_THROW(text.SetAt(3, L'y'), std::out_of_range);
}

TEST(StringTest, Finds) {
    const CString text = L"one two one";
    EXPECT_EQ(text.Find(L"one", 1), 8);
    EXPECT_EQ(text.Find(L'o', 9), -1);
    EXPECT_EQ(text.Find(L"one", -1), -1);
    EXPECT_EQ(text.Find(L"one", 100), -1);
    EXPECT_EQ(text.Find(static_cast<LPCWSTR>(nullptr)), -1);
    EXPECT_EQ(text.ReverseFind(L'o'), 8);
    EXPECT_EQ(text.FindOneOf(L"xwt"), 4);
    EXPECT_EQ(text.FindOneOf(L"xyz"), -1);
}

TEST(StringTest, ExtractsWithClampedCounts) {
    const CString text = L"abcdef";
    EXPECT_EQ(text.Left(2) + L'|' + text.Left(99) + L'|' + text.Left(-1), L"ab|abcdef|");
    EXPECT_EQ(text.Right(2) + L'|' + text.Right(99) + L'|' + text.Right(-1), L"ef|abcdef|");
    EXPECT_EQ(text.Mid(4) + L'|' + text.Mid(4, 99) + L'|' + text.Mid(-3, 2) + L'|' + text.Mid(7),
              L"ef|ef|ab|");
    EXPECT_EQ(text.Mid(1, -1), L"");
    EXPECT_EQ(text.SpanIncluding(L"cba") + L'|' + text.SpanExcluding(L"ed"), L"abc|abc");
    EXPECT_EQ(text.SpanIncluding(L"x") + L'|' + text.SpanExcluding(L"x"), L"|abcdef");
}

TEST(StringTest, TokenizesToTheEnd) {
    const CString text = L"%First Second#Third";
    int start = 0;
    EXPECT_EQ(text.Tokenize(L"% #", start), L"First");
    EXPECT_EQ(start, 7);
    EXPECT_EQ(text.Tokenize(L"% #", start), L"Second");
    EXPECT_EQ(text.Tokenize(L"% #", start), L"Third");
    EXPECT_EQ(start, -1);
    EXPECT_EQ(text.Tokenize(L"% #", start), L"");
    EXPECT_EQ(start, -1);

    start = 0;
    const CString ended = L"a;;";
    EXPECT_EQ(ended.Tokenize(L";", start), L"a");
    EXPECT_EQ(start, 2);
    EXPECT_EQ(ended.Tokenize(L";", start), L"");
    EXPECT_EQ(start, -1);
}

TEST(StringTest, EditsInPlace) {
    CString text = L"aXbXc";
    EXPECT_EQ(text.Replace(L"X", L"--"), 2);
    EXPECT_EQ(text.Replace(L"", L"y"), 0);
    EXPECT_EQ(text.Replace(L"--", nullptr), 2);
    EXPECT_EQ(text.Replace(L'b', L'B'), 1);
    EXPECT_EQ(text, L"aBc");
    EXPECT_EQ(text.Insert(99, L"d"), 4);
    EXPECT_EQ(text.Insert(-1, L'_'), 5);
    EXPECT_EQ(text, L"_aBcd");
    EXPECT_EQ(text.Delete(99), 5);
    EXPECT_EQ(text.Delete(3, 99), 3);
    EXPECT_EQ(text.Remove(L'a'), 1);
    EXPECT_EQ(text, L"_B");
    EXPECT_EQ(CString(L"Ärger 3").MakeUpper() + CString(L"ÄRGER").MakeLower(), L"ÄRGER 3ärger");
}

TEST(StringTest, Trims) {
    const CString text = L" \t12.50\r\n";
    EXPECT_EQ(CString(text).Trim(), L"12.50");
    EXPECT_EQ(CString(text).TrimLeft(), L"12.50\r\n");
    EXPECT_EQ(CString(text).TrimRight().TrimRight(L'0'), L" \t12.5");
    EXPECT_EQ(CString(L"   ").Trim(), L"");
    EXPECT_EQ(CString(L"xxaxx").Trim(L'x'), L"a");
    EXPECT_EQ(CString(L"xyaxy").TrimLeft(L"yx"), L"axy");
    EXPECT_EQ(CString(L"xyaxy").TrimRight(L"yx"), L"xya");
    EXPECT_EQ(CString(L" a ").Trim(L""), L" a ");
}

TEST(StringTest, FormatsByMicrosoftsWideRules) {
    EXPECT_EQ(Formatted(L"%s|%hs|%S|%c", L"wide \u9435", "narrow", "narrow", L'\u9435'),
              L"wide \u9435|narrow|narrow|\u9435");
    EXPECT_EQ(Formatted(L"%I64d %.3f %5d%%", 5000000000LL, 0.5, 7), L"5000000000 0.500     7%");
    const CString longText(L'x', 5000);
    EXPECT_EQ(Formatted(L"%s", longText.GetString()), longText);

    CString text = L"own";
    text.Format(L"<%s>", text.GetString());
    text.AppendFormat(L"%s%d", text.GetString(), 1);
    EXPECT_EQ(text, L"<own><own>1");
    text.Format(IDS_TEST_FORMAT, L"rule", 2, 3);
    EXPECT_EQ(text, L"rule: 2 of 3");
}

TEST(StringTest, FailedFormatLeavesNothing) {
    EXPECT_EQ(Formatted(nullptr), L"");
    CString text = L"before";
    text.AppendFormat(nullptr);
    EXPECT_EQ(text, L"before");
    text.Format(IDS_TEST_MISSING, 1);
    EXPECT_EQ(text, L"");
}

TEST(StringTest, LoadsResources) {
    CString text;
    EXPECT_TRUE(text.LoadString(IDS_TEST_GREETING));
    EXPECT_EQ(text, L"Gr\u00fc\u00dfe aus \u9435");
    EXPECT_TRUE(text.LoadString(::GetModuleHandleW(nullptr), IDS_TEST_LONG));
    EXPECT_EQ(text.GetLength(), 600);
    EXPECT_EQ(text.Right(10), L"0123456789");

    EXPECT_FALSE(text.LoadString(IDS_TEST_MISSING));
    EXPECT_EQ(text.GetLength(), 600);
    AfxSetResourceHandle(::GetModuleHandleW(L"kernel32.dll"));
    EXPECT_FALSE(text.LoadString(IDS_TEST_GREETING));
    AfxSetResourceHandle(nullptr);
    EXPECT_TRUE(text.LoadString(IDS_TEST_GREETING));
}

TEST(StringTest, LendsItsBuffer) {
    CString text = L"abc";
    LPWSTR buffer = text.GetBuffer(260);
    EXPECT_STREQ(buffer, L"abc");
    EXPECT_EQ(text.GetLength(), 3) << "only reading needs no release";
    const CString written(L'w', 200);
    ::wcscpy(buffer, written);
    text.ReleaseBuffer();
    EXPECT_EQ(text, written);

    text.GetBuffer()[5] = L'\0';
    text.ReleaseBuffer();
    EXPECT_EQ(text, L"wwwww");
    buffer = text.GetBuffer(20);
    std::wmemset(buffer, L'z', 20);
    text.ReleaseBuffer(20);
    EXPECT_EQ(text, CString(L'z', 20));
    text.GetBuffer(-1);
    text.ReleaseBuffer(0);
    EXPECT_TRUE(text.IsEmpty());
}
