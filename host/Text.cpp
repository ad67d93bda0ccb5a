#include "Text.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>

std::string ToUtf8(const CString& strText) {
    const int nChars = strText.GetLength();
    const int nBytes = WideCharToMultiByte(CP_UTF8, 0, strText, nChars, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(nBytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, strText, nChars, text.data(), nBytes, nullptr, nullptr);
    return text;
}

CString FromUtf8(const std::string& text) {
    const int nBytes = static_cast<int>(text.size());
    const int nChars = MultiByteToWideChar(CP_UTF8, 0, text.data(), nBytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(nChars), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), nBytes, wide.data(), nChars);
    return CString(wide.c_str(), nChars);
}

void Print(const std::string& text) {
    fwrite(text.data(), 1, text.size(), stdout);
}

void PrintError(const std::string& text) {
    fwrite(text.data(), 1, text.size(), stderr);
}

bool FlushOutput() {
    return fflush(stdout) == 0 && ferror(stdout) == 0;
}

void PrintProgress(std::size_t nDone, std::size_t nTotal, const std::string& noun) {
    constexpr ULONGLONG kBetweenMs = 500;
    static ULONGLONG nLastMs = GetTickCount64();
    static std::size_t nShown = 0;
    const bool bEnd = nDone == nTotal;
    if ((!bEnd && GetTickCount64() - nLastMs < kBetweenMs) || (bEnd && nShown == 0)) return;
    nLastMs = GetTickCount64();
    const std::string text =
        bEnd ? std::string(nShown, ' ') : std::to_string(nDone) + " of " + Count(nTotal, noun);
    nShown = bEnd ? 0 : text.size();
    if (_isatty(_fileno(stderr))) PrintError(text + "\r");
}

void PrepareConsole() {
    SetConsoleOutputCP(CP_UTF8);
    // The same bytes on the console, in a file and in a pipe.
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

std::string WindowsErrorText(DWORD dwError) {
    wchar_t szText[512] = L"";
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, dwError, 0, szText,
                   static_cast<DWORD>(std::size(szText)), nullptr);
    CString strText(szText);
    strText.TrimRight();
    strText.TrimRight(L'.');
    strText.Replace(L"%1", L"the file");
    return (strText.IsEmpty() ? "" : ToUtf8(strText) + " ") + "(error " + std::to_string(dwError) + ")";
}

std::string Count(std::size_t nCount, const std::string& noun) {
    return std::to_string(nCount) + " " + noun + (nCount == 1 ? "" : "s");
}
