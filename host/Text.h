// Text between Windows (UTF-16) and the console (UTF-8).
#pragma once

#include <afx.h>

#include <string>

std::string ToUtf8(const CString& strText);
CString FromUtf8(const std::string& text);

// Writes UTF-8 to standard output or standard error, as it is.
void Print(const std::string& text);
void PrintError(const std::string& text);

// Ends the output; false when not all of it could be written.
bool FlushOutput();

// Shows on the terminal how far a long command has come, twice a second, and nothing where standard error is
// a pipe: there it would end up among the messages.
void PrintProgress(std::size_t nDone, std::size_t nTotal, const std::string& noun);

// Puts the console in a state in which it shows what Print writes.
void PrepareConsole();

// Text of a Windows error code, without its line end.
std::string WindowsErrorText(DWORD dwError);

// "1 rule", "2 rules".
std::string Count(std::size_t nCount, const std::string& noun);
