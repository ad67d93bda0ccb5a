#include <iterator>
#include <utility>

#include "afxwin.h"

namespace {

// The plain vswprintf of MinGW takes %s as narrow text; these functions follow Microsoft's rules
// everywhere.
int CountText(LPCWSTR format, va_list args) {
    va_list countArgs;
    va_copy(countArgs, args);
    const int length = ::_vscwprintf(format, countArgs);
    va_end(countArgs);
    return length;
}

bool FormatText(LPCWSTR format, va_list args, std::wstring& result) {
    if (!format) return false;
    va_list moreArgs;
    va_copy(moreArgs, args);
    wchar_t shortText[128];  // most texts fit, and need no counting
    int length = ::_vsnwprintf(shortText, std::size(shortText), format, args);
    if (length >= 0) {
        result.assign(shortText, static_cast<size_t>(length));
    } else if ((length = CountText(format, moreArgs)) >= 0) {
        result.resize(static_cast<size_t>(length));
        length = ::_vsnwprintf(result.data(), result.size() + 1, format, moreArgs);
    }
    va_end(moreArgs);
    return length >= 0;
}

}  // namespace

void CString::FormatV(LPCWSTR pszFormat, va_list args) {
    std::wstring text;
    if (!FormatText(pszFormat, args, text)) text.clear();
    m_text = std::move(text);
}

void CString::Format(LPCWSTR pszFormat, ...) {
    va_list args;
    va_start(args, pszFormat);
    FormatV(pszFormat, args);
    va_end(args);
}

void CString::Format(UINT nFormatID, ...) {
    CString format;
    format.LoadString(nFormatID);
    va_list args;
    va_start(args, nFormatID);
    FormatV(format, args);
    va_end(args);
}

BOOL CString::LoadString(UINT nID) {
    return LoadString(AfxGetResourceHandle(), nID);
}

BOOL CString::LoadString(HINSTANCE hInstance, UINT nID) {
    // With a buffer size of 0 Windows hands out the resource itself, so the length has no limit. It has no
    // terminator.
    LPCWSTR resource = nullptr;
    const int length = ::LoadStringW(hInstance, nID, reinterpret_cast<LPWSTR>(&resource), 0);
    if (length <= 0 || !resource) return FALSE;
    m_text.assign(resource, static_cast<size_t>(length));
    return TRUE;
}
