#include "Text.h"

#include <algorithm>

std::string ToUtf8(const CString& text) {
    const int length = text.GetLength();
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text, length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, length, utf8.data(), bytes, nullptr, nullptr);
    return utf8;
}

CString FromUtf8(const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, wide.data(), length);
    return CString(wide.c_str(), length);
}

std::string Shortened(const CString& text) {
    constexpr int kMostCharacters = 80;
    if (text.GetLength() <= kMostCharacters) return ToUtf8(text);
    const int half = IS_HIGH_SURROGATE(text[kMostCharacters - 1]) ? 1 : 0;
    return ToUtf8(text.Left(kMostCharacters - half)) + "...";
}

std::string Quoted(const CString& text) {
    return "\"" + Shortened(text) + "\"";
}

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool IsSameWord(std::string_view first, std::string_view second) {
    const auto lower = [](char ch) { return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch + 32) : ch; };
    return std::ranges::equal(first, second, {}, lower, lower);
}

std::string Count(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string LinePrefix(const CString& path, int line) {
    return ToUtf8(path) + ":" + (line ? std::to_string(line) + ":" : "") + " ";
}

std::string WindowsErrorText(DWORD error) {
    wchar_t buffer[512] = L"";
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, buffer,
                   static_cast<DWORD>(std::size(buffer)), nullptr);
    CString text(buffer);
    text.TrimRight();
    text.TrimRight(L'.');
    text.Replace(L"%1", L"the file");
    return (text.IsEmpty() ? "" : ToUtf8(text) + " ") + "(error " + std::to_string(error) + ")";
}
