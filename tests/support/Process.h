#pragma once

#include <functional>
#include <string>
#include <vector>

struct ProcessResult {
    int nExitCode = -1;
    bool bTimedOut = false;
    std::string out, err;
};

// Runs a program with the arguments, each of which it receives exactly as given. A program that does not end
// in time is killed, or at the given moment: when the function, which is called once it runs, returns. Its
// standard input is the file. Throws std::runtime_error when it can't be started.
ProcessResult RunProcess(const std::wstring& program, const std::vector<std::wstring>& arguments,
                         const std::wstring& workFolder, unsigned long dwTimeoutMs = 30000,
                         const std::function<void()>& untilKilled = nullptr,
                         const std::wstring& inputFile = L"NUL");

// Folder that the test program runs from.
std::wstring ProgramFolder();

std::string Utf8(const std::wstring& text);
std::wstring Wide(const std::string& utf8);
