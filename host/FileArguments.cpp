#include "FileArguments.h"

#include "Console.h"
#include "ExitCode.h"
#include "Text.h"

#include <utility>

namespace {

void PrintReadingProgress(std::size_t done, std::size_t total) {
    PrintProgress(done, total, "rule");
}

}  // namespace

void ClaimStandardInput() {
    static bool isClaimed = false;
    if (std::exchange(isClaimed, true))
        throw CommandError(ExitCode::WrongUsage, "standard input (-) can be read only once");
}

std::string ReadBytes(const std::string& file) {
    if (file != kStandardStream) return ReadFileBytes(FromUtf8(file));
    ClaimStandardInput();
    return ReadStandardInput();
}

void RefuseSameFile(const std::string& output, const std::string& input, const std::string& noun) {
    if (output != kStandardStream && IsSamePath(FromUtf8(output), FromUtf8(input)))
        throw CommandError(ExitCode::WrongUsage, output + ": -o names the " + noun + " itself");
}

void WriteBytes(const std::string& file, const std::string& bytes) {
    if (file == kStandardStream) return Print(bytes);
    ReplaceFileBytes(FromUtf8(file), bytes);
    SetSaved();
}

RuleDocument ReadDocument(const RuleModule& module, const std::string& file) {
    if (file != kStandardStream) return RuleDocument(module, FromUtf8(file), PrintReadingProgress);
    return RuleDocument(module, FromUtf8(file), ReadBytes(file), PrintReadingProgress);
}

void SaveDocument(RuleDocument& document, const std::string& file) {
    if (file == kStandardStream) return Print(document.ToUtf8());
    document.Save(FromUtf8(file));
    SetSaved();
}

void PrintOutcome(const std::string& file, const std::string& text) {
    if (file == kStandardStream)
        PrintError(text);
    else
        Print(text);
}
