#pragma once

#include <windows.h>
#include <tchar.h>

#include <cstdarg>
#include <cwchar>
#include <string>

#include "mfxmfcapi.h"

// Text of UTF-16 units. Counts and positions are in units. A null pointer counts as an empty text. Positions
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
    CString& operator+=(const CString& str);
    CString& operator+=(LPCWSTR pszSrc);
    CString& operator+=(wchar_t ch);

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    LPCWSTR GetString() const { return m_text.c_str(); }
    operator LPCWSTR() const { return m_text.c_str(); }

    // 0 at the terminator; throws std::out_of_range outside of text and terminator.
    wchar_t operator[](int iChar) const;

    // Compare by units; a text with an embedded null ends there. CompareNoCase follows LC_CTYPE.
    int Compare(LPCWSTR psz) const;
    int CompareNoCase(LPCWSTR psz) const;

    // Position, or -1 where nothing is found or iStart lies outside of the text.
    int Find(LPCWSTR pszSub, int iStart = 0) const;
    int Find(wchar_t ch, int iStart = 0) const;
    int ReverseFind(wchar_t ch) const;

    CString Left(int nCount) const;
    CString Mid(int iFirst) const;
    CString Right(int nCount) const;
    CString SpanIncluding(LPCWSTR pszCharSet) const;
    CString SpanExcluding(LPCWSTR pszCharSet) const;

    // Number of replaced places. An empty pszOld is found nowhere.
    int Replace(LPCWSTR pszOld, LPCWSTR pszNew);

    CString& Trim();
    CString& TrimRight();
    CString& TrimRight(wchar_t chTarget);
    CString& MakeUpper();

    // Microsoft's wide rules: %s takes wide text, %hs and %S narrow text. Give a CString as GetString(). The
    // string is empty after a format that fails, and where the string resource is missing.
    void Format(LPCWSTR pszFormat, ...);
    void Format(UINT nFormatID, ...);
    void FormatV(LPCWSTR pszFormat, va_list args);

    // The first form loads by AfxGetResourceHandle(). FALSE where the resource is missing or empty, which a
    // string table can't tell apart. The string then stays as it was.
    BOOL LoadString(UINT nID);
    BOOL LoadString(HINSTANCE hInstance, UINT nID);

    // Room for nMinBufferLength units and the terminator. The text keeps its length until ReleaseBuffer sets
    // it: to nNewLength, or up to the terminator (-1).
    LPWSTR GetBuffer(int nMinBufferLength);
    void ReleaseBuffer(int nNewLength = -1);

    friend CString operator+(const CString& str1, const CString& str2) { return CString(str1) += str2; }
    friend CString operator+(const CString& str1, LPCWSTR psz2) { return CString(str1) += psz2; }
    friend CString operator+(LPCWSTR psz1, const CString& str2) { return CString(psz1) += str2; }
    friend CString operator+(const CString& str1, wchar_t ch2) { return CString(str1) += ch2; }
    friend CString operator+(wchar_t ch1, const CString& str2) { return CString(ch1) += str2; }

    // All of them: one that is missing would compare addresses, through the conversion to LPCWSTR.
    friend bool operator==(const CString& str1, const CString& str2) { return str1.Compare(str2) == 0; }
    friend bool operator==(const CString& str1, LPCWSTR psz2) { return str1.Compare(psz2) == 0; }
    friend bool operator==(LPCWSTR psz1, const CString& str2) { return str2.Compare(psz1) == 0; }
    friend bool operator!=(const CString& str1, const CString& str2) { return !(str1 == str2); }
    friend bool operator!=(const CString& str1, LPCWSTR psz2) { return !(str1 == psz2); }
    friend bool operator!=(LPCWSTR psz1, const CString& str2) { return !(psz1 == str2); }
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
