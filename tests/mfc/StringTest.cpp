#include <afxwin.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "MfcTestIds.h"

TEST(StringTest, IsMadeComparedAndEdited) {
    CString text(static_cast<LPCSTR>(nullptr));
    text += CString("narrow") + CString(L'x', 3) + CString(L'x', -1) + CString(L"abc", 2);
    EXPECT_EQ(text, L"narrowxxxab");
    EXPECT_NE(text, L"narrow");
    EXPECT_LT(text, CString(L"narrowy"));
    EXPECT_EQ(text.CompareNoCase(L"NARROWXXXAB"), 0);
    EXPECT_GT(text.Compare(nullptr), 0);
    EXPECT_EQ(text[11], L'\0');
    for (const int nPlace : {12, -1}) EXPECT_THROW(text[nPlace], std::out_of_range);

    // Parts of itself.
    text = text.GetString() + 6;
    text += text.GetString() + 3;
    EXPECT_EQ(text, L"xxxabab");
    EXPECT_EQ(text.Replace(text.GetString() + 5, text), 2);
    EXPECT_EQ(text, L"xxxxxxababxxxabab");
    EXPECT_EQ(text.Replace(L"", L"y"), 0);
    EXPECT_EQ(text.Replace(L"ab", nullptr), 4);
    EXPECT_EQ(text, CString(L'x', 9));

    ::wcscpy(text.GetBuffer(260), CString(L'w', 200));
    EXPECT_EQ(text.GetLength(), 9) << "only reading needs no release";
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
        {text.ReverseFind(L'o'), 8}, {text.Find(static_cast<LPCWSTR>(nullptr)), -1}};
    for (const auto& [found, expected] : places) EXPECT_EQ(found, expected);
    const std::pair<CString, LPCWSTR> parts[] = {{letters.Left(2), L"ab"},
                                                 {letters.Left(99), L"abcdef"},
                                                 {letters.Right(2), L"ef"},
                                                 {letters.Mid(4), L"ef"},
                                                 {letters.Mid(-3), L"abcdef"},
                                                 {letters.Mid(7), L""},
                                                 {letters.SpanIncluding(L"cba"), L"abc"},
                                                 {letters.SpanExcluding(L"ed"), L"abc"},
                                                 {CString(L" \t1 0\r\n").Trim(), L"1 0"},
                                                 {CString(L"   ").Trim(), L""},
                                                 {CString(L" 1 \n").TrimRight(), L" 1"},
                                                 {CString(L"100").TrimRight(L'0'), L"1"},
                                                 {CString(L"ärger 3").MakeUpper(), L"ÄRGER 3"}};
    for (const auto& [found, expected] : parts) EXPECT_EQ(found, expected);
}

TEST(StringTest, FormatsByMicrosoftsWideRulesAndLoads) {
    CString text;
    text.Format(L"%s|%hs|%S|%c", L"wide \u9435", "narrow", "narrow", L'\u9435');
    EXPECT_EQ(text, L"wide \u9435|narrow|narrow|\u9435");
    const CString longText(L'x', 5000);
    text.Format(L"%s%I64d %.3f %5d%%", longText.GetString(), 5000000000LL, 0.5, 7);
    EXPECT_EQ(text, longText + L"5000000000 0.500     7%");
    text = L"own";
    text.Format(L"<%s>", text.GetString());
    EXPECT_EQ(text, L"<own>");
    text.Format(IDS_TEST_FORMAT, L"rule", 2, 3);
    EXPECT_EQ(text, L"rule: 2 of 3");
    text.Format(IDS_TEST_MISSING, 1);
    EXPECT_EQ(text, L"");
    EXPECT_TRUE(text.LoadString(IDS_TEST_LONG));
    EXPECT_FALSE(text.LoadString(IDS_TEST_MISSING));
    EXPECT_EQ(text.GetLength(), 600) << "a load that fails leaves the text";
}
