#include "support/Process.h"

#include "support/TempFolder.h"

#include <windows.h>

#include <filesystem>
#include <stdexcept>

// By the rules of CommandLineToArgvW: backslashes count double before a quotation mark, and only there.
static std::wstring Quoted(const std::wstring& argument) {
    std::wstring text = L"\"";
    std::size_t nBackslashes = 0;
    for (const wchar_t ch : argument) {
        if (ch == L'"') text.append(nBackslashes + 1, L'\\');
        nBackslashes = ch == L'\\' ? nBackslashes + 1 : 0;
        text += ch;
    }
    return text.append(nBackslashes, L'\\') + L'"';
}

// The program writes into a file, so it never waits for a reader.
static HANDLE OpenOutput(const std::wstring& path) {
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    return CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inheritable, CREATE_NEW, 0, nullptr);
}

ProcessResult RunProcess(const std::wstring& program, const std::vector<std::wstring>& arguments,
                         const std::wstring& workFolder, unsigned long dwTimeoutMs,
                         const std::function<void()>& untilKilled, const std::wstring& inputFile) {
    std::wstring commandLine = Quoted(program);
    for (const std::wstring& argument : arguments) commandLine += L' ' + Quoted(argument);
    const TempFolder output;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    start.hStdInput = CreateFileW(inputFile.c_str(), GENERIC_READ, FILE_SHARE_READ, &inheritable,
                                  OPEN_EXISTING, 0, nullptr);
    start.hStdOutput = OpenOutput(output.Path(L"out"));
    start.hStdError = OpenOutput(output.Path(L"err"));
    PROCESS_INFORMATION process{};
    // Wine refuses about one start in two thousand for no fault of the program's.
    constexpr int kTries = 5;
    BOOL bStarted = FALSE;
    DWORD dwError = 0;
    for (int i = 0; i < kTries && !bStarted; ++i) {
        if (i > 0) Sleep(200);
        std::wstring ownCommandLine = commandLine;  // the call may write into it
        bStarted = CreateProcessW(program.c_str(), ownCommandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                  workFolder.c_str(), &start, &process);
        dwError = GetLastError();
    }
    CloseHandle(start.hStdInput);
    CloseHandle(start.hStdOutput);
    CloseHandle(start.hStdError);
    if (!bStarted)
        throw std::runtime_error(Utf8(program) + " does not start: error " + std::to_string(dwError));

    ProcessResult result;
    if (untilKilled) {
        untilKilled();
        dwTimeoutMs = 0;
    }
    result.bTimedOut = WaitForSingleObject(process.hProcess, dwTimeoutMs) != WAIT_OBJECT_0;
    if (result.bTimedOut) TerminateProcess(process.hProcess, static_cast<UINT>(-1));
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD dwExitCode = 0;
    GetExitCodeProcess(process.hProcess, &dwExitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    result.nExitCode = static_cast<int>(dwExitCode);
    result.out = output.Read(L"out");
    result.err = output.Read(L"err");
    return result;
}

std::wstring ProgramFolder() {
    wchar_t szPath[4096];
    const DWORD dwLength = GetModuleFileNameW(nullptr, szPath, 4096);
    return std::filesystem::path(szPath, szPath + dwLength).parent_path().wstring();
}

std::string Utf8(const std::wstring& text) {
    const std::u8string utf8 = std::filesystem::path(text).u8string();
    return {utf8.begin(), utf8.end()};
}
std::wstring Wide(const std::string& utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).wstring();
}
