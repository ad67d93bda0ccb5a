#include "atlstr.h"

#include <algorithm>
#include <cwctype>
#include <string_view>
#include <utility>

namespace {

std::wstring FromAnsi(LPCSTR psz) {
    if (!psz || !*psz) return {};
    const int units = ::MultiByteToWideChar(CP_ACP, 0, psz, -1, nullptr, 0);
    if (units <= 1) return {};
    std::wstring text(static_cast<size_t>(units) - 1, L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, psz, -1, text.data(), units);
    return text;
}

bool IsSpace(wchar_t ch) {
    return std::iswspace(ch) != 0;
}

// First position, and the one behind the last, of what is not to be trimmed.
template <typename Predicate>
size_t TrimmedStart(const std::wstring& text, Predicate isTarget) {
    return static_cast<size_t>(std::find_if_not(text.begin(), text.end(), isTarget) - text.begin());
}

template <typename Predicate>
size_t TrimmedEnd(const std::wstring& text, Predicate isTarget) {
    return static_cast<size_t>(text.rend() - std::find_if_not(text.rbegin(), text.rend(), isTarget));
}

auto IsUnit(wchar_t target) {
    return [target](wchar_t ch) { return ch == target; };
}

}  // namespace

CString::CString(LPCSTR pszSrc) : m_text(FromAnsi(pszSrc)) {}

CString& CString::operator=(LPCWSTR pszSrc) {
    m_text = View(pszSrc);
    return *this;
}

CString& CString::operator+=(const CString& str) {
    m_text += str.m_text;
    return *this;
}

CString& CString::operator+=(LPCWSTR pszSrc) {
    m_text += View(pszSrc);
    return *this;
}

CString& CString::operator+=(wchar_t ch) {
    m_text += ch;
    return *this;
}

wchar_t CString::operator[](int iChar) const {
    return iChar == GetLength() ? L'\0' : m_text.at(static_cast<size_t>(iChar));
}

int CString::Compare(LPCWSTR psz) const {
    return std::wcscmp(GetString(), View(psz));
}

int CString::CompareNoCase(LPCWSTR psz) const {
    return ::_wcsicmp(GetString(), View(psz));
}

int CString::Find(LPCWSTR pszSub, int iStart) const {
    if (!pszSub || !IsInside(iStart)) return -1;
    return Position(m_text.find(pszSub, Clamp(iStart)));
}

int CString::Find(wchar_t ch, int iStart) const {
    return IsInside(iStart) ? Position(m_text.find(ch, Clamp(iStart))) : -1;
}

int CString::ReverseFind(wchar_t ch) const {
    return Position(m_text.rfind(ch));
}

CString CString::Slice(size_t first, size_t count) const {
    CString slice;
    if (first < m_text.size()) slice.m_text = m_text.substr(first, count);
    return slice;
}

CString CString::Left(int nCount) const {
    return Slice(0, Clamp(nCount));
}

CString CString::Mid(int iFirst) const {
    return Slice(Clamp(iFirst), std::wstring::npos);
}

CString CString::Right(int nCount) const {
    const size_t count = std::min(Clamp(nCount), m_text.size());
    return Slice(m_text.size() - count, count);
}

CString CString::SpanIncluding(LPCWSTR pszCharSet) const {
    return Slice(0, m_text.find_first_not_of(View(pszCharSet)));
}

CString CString::SpanExcluding(LPCWSTR pszCharSet) const {
    return Slice(0, m_text.find_first_of(View(pszCharSet)));
}

int CString::Replace(LPCWSTR pszOld, LPCWSTR pszNew) {
    const std::wstring_view oldText = View(pszOld);
    const std::wstring_view newText = View(pszNew);
    if (oldText.empty()) return 0;

    // Built apart, since both arguments may point into this string.
    std::wstring result;
    int replaced = 0;
    size_t from = 0;
    for (size_t at; (at = m_text.find(oldText, from)) != std::wstring::npos; from = at + oldText.size()) {
        result.append(m_text, from, at - from).append(newText);
        ++replaced;
    }
    if (replaced > 0) m_text = std::move(result.append(m_text, from));
    return replaced;
}

// Where nothing is to stay, first lies behind end; the second erase stops at what is left.
CString& CString::Keep(size_t first, size_t end) {
    m_text.erase(end);
    m_text.erase(0, first);
    return *this;
}

CString& CString::Trim() {
    return Keep(TrimmedStart(m_text, IsSpace), TrimmedEnd(m_text, IsSpace));
}

CString& CString::TrimRight() {
    return Keep(0, TrimmedEnd(m_text, IsSpace));
}

CString& CString::TrimRight(wchar_t chTarget) {
    return Keep(0, TrimmedEnd(m_text, IsUnit(chTarget)));
}

// Unlike towupper this knows all letters in every locale.
CString& CString::MakeUpper() {
    ::CharUpperBuffW(m_text.data(), static_cast<DWORD>(m_text.size()));
    return *this;
}

LPWSTR CString::GetBuffer(int nMinBufferLength) {
    // Only the capacity grows: the length must not change before ReleaseBuffer, which may not be called at
    // all when the buffer was only read.
    if (nMinBufferLength > GetLength()) m_text.reserve(Clamp(nMinBufferLength));
    return m_text.data();
}

void CString::ReleaseBuffer(int nNewLength) {
    const wchar_t* const buffer = m_text.data();
    const size_t room = m_text.capacity();
    const size_t length = nNewLength < 0 ? ::wcsnlen(buffer, room) : std::min(Clamp(nNewLength), room);
    // What was written behind the old length is no text yet for the string's own functions, so it is copied
    // out.
    m_text = std::wstring(buffer, length);
}
