#include "cfiledialog.h"

#include <algorithm>

namespace {

constexpr std::size_t kLongestPath = 32768;

// The library is loaded at its first use: it needs half of Windows, and a program may never ask for a file.
template <class Function>
Function* FindDialogFunction(const char* pszName) {
    static const HMODULE hLibrary = ::LoadLibraryExW(L"comdlg32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const FARPROC address = hLibrary ? ::GetProcAddress(hLibrary, pszName) : nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(address));
}

}  // namespace

CFileDialog::CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt, LPCTSTR lpszFileName, DWORD dwFlags,
                         LPCTSTR lpszFilter, CWnd* pParentWnd, DWORD, BOOL)
    : CCommonDialog(pParentWnd),
      m_bOpenFileDialog(bOpenFileDialog),
      m_strDefExt(lpszDefExt),
      m_strFilter(lpszFilter),
      m_path(kLongestPath) {
    const CString strName(lpszFileName);
    std::copy_n(strName.GetString(),
                std::min(static_cast<std::size_t>(strName.GetLength()), kLongestPath - 1), m_path.begin());
    m_ofn.lStructSize = sizeof m_ofn;
    m_ofn.Flags = dwFlags | OFN_EXPLORER | OFN_ENABLESIZING;
    m_ofn.lpstrFile = m_path.data();
    m_ofn.nMaxFile = static_cast<DWORD>(m_path.size());
    m_ofn.lpstrDefExt = m_strDefExt.IsEmpty() ? nullptr : m_strDefExt.GetString();
}

INT_PTR CFileDialog::DoModal() {
    const auto ask = FindDialogFunction<decltype(GetOpenFileNameW)>(m_bOpenFileDialog ? "GetOpenFileNameW"
                                                                                      : "GetSaveFileNameW");
    if (!ask) return IDCANCEL;
    // Windows wants zeros where the filter has bars, and one more at its end.
    std::vector<wchar_t> filter(m_strFilter.GetString(), m_strFilter.GetString() + m_strFilter.GetLength());
    std::replace(filter.begin(), filter.end(), L'|', L'\0');
    filter.insert(filter.end(), 2, L'\0');
    m_ofn.lpstrFilter = m_strFilter.IsEmpty() ? nullptr : filter.data();
    m_ofn.hwndOwner = FindOwner();
    return ask(&m_ofn) ? IDOK : IDCANCEL;
}
