#pragma once

#include <string>
#include <string_view>

// Without the blanks and line ends around it.
std::string_view Trimmed(std::string_view text);

// This and ToWide also take halves of surrogate pairs on their own, which a workbook's escapes can make.
void AppendUtf8(std::string& utf8, char32_t ch);

// Appends the UTF-16 up to half a character at its end. Returns how many bytes it took. Throws
// std::runtime_error for half a surrogate pair.
std::size_t AppendUtf16(std::string& utf8, std::string_view utf16, bool bBigEndian);

// The character whose first byte is at nAt, which moves behind it. Throws std::runtime_error when the text is
// no UTF-8.
char32_t DecodeUtf8(std::string_view utf8, std::size_t& nAt);

// Replaces the text. Throws std::runtime_error when it is no UTF-8.
void ToWide(std::string_view utf8, std::wstring& wide);
