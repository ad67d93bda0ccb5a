#pragma once

#include <windows.h>
#include <tchar.h>

#include <cstdarg>
#include <cwchar>
#include <string>

#include "mfxmfcapi.h"

// Text of UTF-16 units. Counts and positions are in units; a null pointer is taken as empty text. Positions
// and counts out of range are clamped unless a line below says otherwise. Arguments may point into the string
// itself.
class MFX_MFC_API CString {
  public:
    CString() = default;
    CString(LPCWSTR pszSrc) : m_text(View(pszSrc)) {}
    CString(LPCSTR pszSrc);  // text in the ANSI code page
    CString(wchar_t ch, int nLength = 1) : m_text(Clamp(nLength), ch) {}
    CString(LPCWSTR pch, int nLength) : m_text(pch ? pch : L"", pch ? Clamp(nLength) : 0) {}

    CString& operator=(LPCWSTR pszSrc);
    CString& operator=(LPCSTR pszSrc);
    CString& operator=(wchar_t ch);
    CString& operator+=(const CString& str);
    CString& operator+=(LPCWSTR pszSrc);
    CString& operator+=(wchar_t ch);
    void Append(const CString& strSrc) { *this += strSrc; }
    void Append(LPCWSTR pszSrc) { *this += pszSrc; }
    void AppendChar(wchar_t ch) { *this += ch; }

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    LPCWSTR GetString() const { return m_text.c_str(); }
    operator LPCWSTR() const { return m_text.c_str(); }

    // 0 at the terminator; throws std::out_of_range outside of text and terminator.
    wchar_t GetAt(int iChar) const;
    wchar_t operator[](int iChar) const { return GetAt(iChar); }
    void SetAt(int iChar, wchar_t ch);  // throws std::out_of_range outside of the text

    // Compare by units; a text with an embedded null ends there. CompareNoCase follows LC_CTYPE.
    int Compare(LPCWSTR psz) const;
    int CompareNoCase(LPCWSTR psz) const;

    // Position, or -1 where nothing is found or iStart lies outside of the text.
    int Find(LPCWSTR pszSub, int iStart = 0) const;
    int Find(wchar_t ch, int iStart = 0) const;
    int ReverseFind(wchar_t ch) const;
    int FindOneOf(LPCWSTR pszCharSet) const;

    CString Left(int nCount) const;
    CString Mid(int iFirst) const;
    CString Mid(int iFirst, int nCount) const;
    CString Right(int nCount) const;
    CString SpanIncluding(LPCWSTR pszCharSet) const;
    CString SpanExcluding(LPCWSTR pszCharSet) const;

    // Next token from iStart on. iStart becomes the position behind the delimiter that ended the token, or -1
    // where the text ended. An empty token says that there are no more: end a loop by that, the last token
    // has -1 too.
    CString Tokenize(LPCWSTR pszTokens, int& iStart) const;

    // Number of replaced or removed places. An empty pszOld is found nowhere.
    int Replace(LPCWSTR pszOld, LPCWSTR pszNew);
    int Replace(wchar_t chOld, wchar_t chNew);
    int Remove(wchar_t chRemove);

    // New length.
    int Insert(int iIndex, LPCWSTR psz);
    int Insert(int iIndex, wchar_t ch);
    int Delete(int iIndex, int nCount = 1);

    CString& Trim();
    CString& Trim(wchar_t chTarget);
    CString& Trim(LPCWSTR pszTargets);
    CString& TrimLeft();
    CString& TrimLeft(wchar_t chTarget);
    CString& TrimLeft(LPCWSTR pszTargets);
    CString& TrimRight();
    CString& TrimRight(wchar_t chTarget);
    CString& TrimRight(LPCWSTR pszTargets);
    CString& MakeLower();
    CString& MakeUpper();

    // Microsoft's wide rules: %s takes wide text, %hs and %S narrow text. Give a CString as GetString(). The
    // arguments may be the string itself. A format that fails or a missing string resource leaves the string
    // empty.
    void Format(LPCWSTR pszFormat, ...);
    void Format(UINT nFormatID, ...);
    void FormatV(LPCWSTR pszFormat, va_list args);
    void AppendFormat(LPCWSTR pszFormat, ...);  // a format that fails appends nothing

    // The first form loads by AfxGetResourceHandle(). FALSE, with the string as it was, where the resource is
    // missing or empty: only a successful load is documented to write, and a string table can't tell the two
    // cases apart.
    BOOL LoadString(UINT nID);
    BOOL LoadString(HINSTANCE hInstance, UINT nID);

    // Room for nMinBufferLength units and the terminator; the text keeps its length until ReleaseBuffer sets
    // it, by the terminator (-1) or to the given length.
    LPWSTR GetBuffer();
    LPWSTR GetBuffer(int nMinBufferLength);
    void ReleaseBuffer(int nNewLength = -1);

    friend CString operator+(const CString& str1, const CString& str2) { return CString(str1) += str2; }
    friend CString operator+(const CString& str1, LPCWSTR psz2) { return CString(str1) += psz2; }
    friend CString operator+(LPCWSTR psz1, const CString& str2) { return CString(psz1) += str2; }
    friend CString operator+(const CString& str1, wchar_t ch2) { return CString(str1) += ch2; }
    friend CString operator+(wchar_t ch1, const CString& str2) { return CString(ch1) += str2; }

    friend bool operator==(const CString& str1, const CString& str2) { return str1.Compare(str2) == 0; }
    friend bool operator==(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) == 0; }
    friend bool operator==(LPCWSTR psz1, const CString& str2) { return str2.Compare(psz1) == 0; }
    friend bool operator==(const CString& str1, wchar_t ch2) { return str1.Compare(CString(ch2)) == 0; }
    friend bool operator==(wchar_t ch1, const CString& str2) { return str2.Compare(CString(ch1)) == 0; }
    friend bool operator!=(const CString& str1, const CString& str2) { return !(str1 == str2); }
    friend bool operator!=(const CString& str1, LPCWSTR psz2) { return !(str1 == psz2); }
    friend bool operator!=(LPCWSTR psz1, const CString& str2) { return !(psz1 == str2); }
    friend bool operator!=(const CString& str1, wchar_t ch2) { return !(str1 == ch2); }
    friend bool operator!=(wchar_t ch1, const CString& str2) { return !(ch1 == str2); }
    friend bool operator<(const CString& str1, const CString& str2) { return str1.Compare(str2) < 0; }
    friend bool operator<(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) < 0; }
    friend bool operator<(LPCWSTR psz1, const CString& str2) { return str2.Compare(psz1) > 0; }
    friend bool operator>(const CString& str1, const CString& str2) { return str1.Compare(str2) > 0; }
    friend bool operator>(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) > 0; }
    friend bool operator>(LPCWSTR psz1, const CString& str2) { return str2.Compare(psz1) < 0; }
    friend bool operator<=(const CString& str1, const CString& str2) { return str1.Compare(str2) <= 0; }
    friend bool operator<=(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) <= 0; }
    friend bool operator<=(LPCWSTR psz1, const CString& str2) { return str2.Compare(psz1) >= 0; }
    friend bool operator>=(const CString& str1, const CString& str2) { return str1.Compare(str2) >= 0; }
    friend bool operator>=(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) >= 0; }
    friend bool operator>=(LPCWSTR psz1, const CString& str2) { return str2.Compare(psz1) <= 0; }

  private:
    static LPCWSTR View(LPCWSTR psz) { return psz ? psz : L""; }
    static size_t Clamp(int n) { return n > 0 ? static_cast<size_t>(n) : 0; }
    static int Position(size_t found) { return found == std::wstring::npos ? -1 : static_cast<int>(found); }
    bool IsInside(int iStart) const { return iStart >= 0 && iStart <= GetLength(); }
    CString Slice(size_t first, size_t count) const;
    CString& Keep(size_t first, size_t end);

    // The runtime library that all modules share allocates, so a string outlives the module that made it.
    std::wstring m_text;
};
