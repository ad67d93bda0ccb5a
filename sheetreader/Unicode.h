#pragma once

#include <string>
#include <string_view>

// Without the blanks and line ends around it.
std::string_view Trimmed(std::string_view text);

// Both also take halves of surrogate pairs on their own, which a workbook's escaped characters can make.
void AppendUtf8(std::string& utf8, char32_t ch);

// Replaces the text. Throws std::runtime_error when it is no UTF-8.
void ToWide(std::string_view utf8, std::wstring& wide);
