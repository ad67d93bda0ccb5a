// Texts in UTF-8, as messages and findings are made of them.
#pragma once

#include <afx.h>

#include <string>
#include <string_view>

std::string ToUtf8(const CString& text);
CString FromUtf8(const std::string& text);

// A text for use in a sentence: cut after 80 characters.
std::string Shortened(const CString& text);

// The same in quotation marks.
std::string Quoted(const CString& text);

// Without blanks and tabs around it.
std::string_view WithoutBlanks(std::string_view text);

// Letters A to Z count the same as a to z.
bool IsSameWord(std::string_view first, std::string_view second);

// "1 rule", "2 rules".
std::string Count(std::size_t count, const std::string& noun);

// "file:12: "; without the line when that is 0.
std::string LinePrefix(const CString& path, int line);

// Text of a Windows error code, without its line end.
std::string WindowsErrorText(DWORD error);
