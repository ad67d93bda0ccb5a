#include <afxwin.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

#include "MfcTestIds.h"

TEST(StringTest, IsMadeComparedAndEdited) {
    CString text(static_cast<LPCSTR>(nullptr));
    text += CString("narrow") + CString(L'x', 3) + CString(L'x', -1) + CString(L"abc", 2);
    EXPECT_EQ(text, L"narrowxxxab");
    EXPECT_TRUE(text < L"narrowy" && L"b" < text && text != L"narrow" && text >= L"narrow");
    EXPECT_TRUE(text.CompareNoCase(L"NARROWXXXAB") == 0 && text.Compare(nullptr) > 0);
    EXPECT_TRUE(text[1] == L'a' && text.GetAt(11) == L'\0');
    for (const int nPlace : {12, -1}) EXPECT_THROW(text.GetAt(nPlace), std::out_of_range);
    EXPECT_THROW(text.SetAt(11, L'y'), std::out_of_range);

    // Parts of itself.
    text = text.GetString() + 6;
    text.Append(text.GetString() + 3);
    text.Insert(1, text.GetString() + 5);
    EXPECT_EQ(text, L"xabxxabab");
    EXPECT_EQ(text.Replace(text.GetString() + 7, text), 3);
    EXPECT_EQ(text.GetLength(), 9 + 3 * 7);

    text = L"aXbXc";
    EXPECT_TRUE(text.Replace(L"X", L"--") == 2 && text.Replace(L"", L"y") == 0);
    EXPECT_TRUE(text.Replace(L"--", nullptr) == 2 && text.Replace(L'b', L'B') == 1);
    EXPECT_TRUE(text.Insert(99, L"d") == 4 && text.Insert(-1, L'_') == 5);
    EXPECT_TRUE(text.Delete(99) == 5 && text.Delete(3, 99) == 3 && text.Remove(L'a') == 1);
    EXPECT_EQ(text, L"_B");
    ::wcscpy(text.GetBuffer(260), CString(L'w', 200));
    EXPECT_EQ(text.GetLength(), 2) << "only reading needs no release";
    text.ReleaseBuffer();
    EXPECT_EQ(text, CString(L'w', 200));
    text.GetBuffer(20);
    text.ReleaseBuffer(20);
    EXPECT_EQ(text, CString(L'w', 20));
}

TEST(StringTest, SearchesAndCuts) {
    const CString text = L"one two one", letters = L"abcdef";
    const std::pair<int, int> places[] = {
        {text.Find(L"one", 1), 8},   {text.Find(L'o', 9), -1},
        {text.Find(L"one", -1), -1}, {text.Find(L"one", 100), -1},
        {text.ReverseFind(L'o'), 8}, {text.Find(static_cast<LPCWSTR>(nullptr)), -1},
        {text.FindOneOf(L"xwt"), 4}, {text.FindOneOf(L"xyz"), -1}};
    for (const auto& [found, expected] : places) EXPECT_EQ(found, expected);
    const std::pair<CString, LPCWSTR> parts[] = {
        {letters.Left(2) + L'|' + letters.Left(99) + L'|' + letters.Left(-1), L"ab|abcdef|"},
        {letters.Right(2) + L'|' + letters.Right(99) + L'|' + letters.Right(-1), L"ef|abcdef|"},
        {letters.Mid(4) + L'|' + letters.Mid(4, 99) + L'|' + letters.Mid(-3, 2) + letters.Mid(7),
         L"ef|ef|ab"},
        {letters.Mid(1, -1) + letters.SpanIncluding(L"x") + letters.SpanExcluding(L"x"), L"abcdef"},
        {letters.SpanIncluding(L"cba") + L'|' + letters.SpanExcluding(L"ed"), L"abc|abc"},
        {CString(L" \t1 0\r\n").Trim() + CString(L" \t1").TrimLeft() + CString(L"1 \n").TrimRight(),
         L"1 011"},
        {CString(L"xxaxx").Trim(L'x') + CString(L"   ").Trim() + CString(L" a ").Trim(L""), L"a a "},
        {CString(L"xyaxy").TrimLeft(L"yx") + CString(L"xyaxy").TrimRight(L"yx"), L"axyxya"},
        {CString(L"Ärger 3").MakeUpper() + CString(L"ÄRGER").MakeLower(), L"ÄRGER 3ärger"}};
    for (const auto& [found, expected] : parts) EXPECT_EQ(found, expected);

    // The token and where the next one starts; in the end an empty one and -1.
    const CString list = L"%First Second#Third;;";
    int start = 0;
    for (const auto& [token, next] :
         {std::pair{L"First", 7}, {L"Second", 14}, {L"Third", 20}, {L"", -1}, {L"", -1}}) {
        EXPECT_EQ(list.Tokenize(L"% #;", start), token);
        EXPECT_EQ(start, next);
    }
}

TEST(StringTest, FormatsByMicrosoftsWideRules) {
    CString text;
    text.Format(L"%s|%hs|%S|%c", L"wide \u9435", "narrow", "narrow", L'\u9435');
    EXPECT_EQ(text, L"wide \u9435|narrow|narrow|\u9435");
    const CString longText(L'x', 5000);
    text.Format(L"%s%I64d %.3f %5d%%", longText.GetString(), 5000000000LL, 0.5, 7);
    EXPECT_EQ(text, longText + L"5000000000 0.500     7%");
    text = L"own";
    text.Format(L"<%s>", text.GetString());
    text.AppendFormat(L"%s%d", text.GetString(), 1);
    text.AppendFormat(nullptr);
    EXPECT_EQ(text, L"<own><own>1");
    text.Format(IDS_TEST_FORMAT, L"rule", 2, 3);
    EXPECT_EQ(text, L"rule: 2 of 3");
    text.Format(IDS_TEST_MISSING, 1);
    EXPECT_EQ(text, L"");
}

TEST(StringTest, LoadsResources) {
    CString text;
    EXPECT_TRUE(text.LoadString(IDS_TEST_GREETING));
    EXPECT_EQ(text, L"Gr\u00fc\u00dfe aus \u9435");
    EXPECT_TRUE(text.LoadString(::GetModuleHandleW(nullptr), IDS_TEST_LONG));
    EXPECT_FALSE(text.LoadString(IDS_TEST_MISSING));
    AfxSetResourceHandle(::GetModuleHandleW(L"kernel32.dll"));
    EXPECT_FALSE(text.LoadString(IDS_TEST_GREETING));
    AfxSetResourceHandle(nullptr);
    EXPECT_TRUE(text.GetLength() == 600 && text.Right(10) == L"0123456789");
}
