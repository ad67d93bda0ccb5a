// Standard output and standard error, in UTF-8.
#pragma once

#include <cstddef>
#include <string>

// Control characters as "\n" or "\u001b", for texts of documents on lines of the console.
std::string Escaped(const std::string& text);

void Print(const std::string& text);
void PrintError(const std::string& text);

// Told that a file was saved: nobody shall take the work as undone when the output can't be written after it.
void SetSaved();
bool IsSaved();

// Ends the output; false when not all of it could be written.
bool FlushOutput();

// All bytes of standard input.
std::string ReadStandardInput();

// Shows on the terminal how far a long command has come, twice a second, and nothing where standard error is
// a pipe: there it would end up among the messages.
void PrintProgress(std::size_t done, std::size_t total, const std::string& noun);

// While it lives, the console shows what Print writes. Then the terminal is as it was before; also after
// Ctrl+C.
class ConsoleScope {
  public:
    ConsoleScope();
    ~ConsoleScope();
    ConsoleScope(const ConsoleScope&) = delete;
    ConsoleScope& operator=(const ConsoleScope&) = delete;
};
