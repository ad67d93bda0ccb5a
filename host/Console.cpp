#include "Console.h"

#include "Text.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>

namespace {

bool isSaved = false;

UINT codePageBefore = 0;  // 0: there is no console

void RestoreCodePage() {
    if (codePageBefore) SetConsoleOutputCP(codePageBefore);
}

BOOL WINAPI RestoreOnInterrupt(DWORD) {
    RestoreCodePage();
    return FALSE;  // the program ends as it would without this
}

}  // namespace

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto code = static_cast<unsigned char>(text[i]);
        const auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0;
        const bool twoBytes = code == 0xC2 && next >= 0x80 && next < 0xA0;
        if (twoBytes) code = static_cast<unsigned char>(text[++i]);
        char escape[8];
        if (code == '\n')
            escaped += "\\n";
        else if (code < 0x20 || code == 0x7F || twoBytes)
            escaped.append(escape,
                           static_cast<std::size_t>(snprintf(escape, sizeof escape, "\\u%04x", code)));
        else
            escaped += text[i];
    }
    return escaped;
}

void Print(const std::string& text) {
    fwrite(text.data(), 1, text.size(), stdout);
}

void PrintError(const std::string& text) {
    fwrite(text.data(), 1, text.size(), stderr);
}

void SetSaved() {
    isSaved = true;
}

bool IsSaved() {
    return isSaved;
}

bool FlushOutput() {
    return fflush(stdout) == 0 && ferror(stdout) == 0;
}

void PrintProgress(std::size_t done, std::size_t total, const std::string& noun) {
    constexpr ULONGLONG kBetweenMs = 500;
    static ULONGLONG lastMs = GetTickCount64();
    static std::size_t shown = 0;
    const bool isEnd = done == total;
    if ((!isEnd && GetTickCount64() - lastMs < kBetweenMs) || (isEnd && shown == 0)) return;
    lastMs = GetTickCount64();
    const std::string text =
        isEnd ? std::string(shown, ' ') : std::to_string(done) + " of " + Count(total, noun);
    shown = isEnd ? 0 : text.size();
    if (_isatty(_fileno(stderr))) PrintError(text + "\r");
}

std::string ReadStandardInput() {
    std::string bytes;
    char block[1 << 16];
    while (const std::size_t size = fread(block, 1, sizeof block, stdin)) bytes.append(block, size);
    return bytes;
}

ConsoleScope::ConsoleScope() {
    codePageBefore = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleCtrlHandler(RestoreOnInterrupt, TRUE);
    // The same bytes on the console, in a file and in a pipe.
    for (FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
}

ConsoleScope::~ConsoleScope() {
    RestoreCodePage();
}
