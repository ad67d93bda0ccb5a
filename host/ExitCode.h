#pragma once

#include "DocumentError.h"

#include <stdexcept>
#include <string>

// How the program ends.
enum class ExitCode {
    Done = 0,
    Findings = 1,         // something in the input needs the user's attention
    WrongUsage = 2,       // the command line is wrong
    UnreadableInput = 3,  // a file can't be read or is not a rule document
    NotPossible = 4,      // something is missing on the machine, or a file can't be written
};

// How the program ends when an operation on documents failed.
constexpr ExitCode ExitCodeOf(DocumentError::Kind kind) {
    if (kind == DocumentError::Kind::NothingSelected) return ExitCode::WrongUsage;
    return kind == DocumentError::Kind::Unreadable ? ExitCode::UnreadableInput : ExitCode::NotPossible;
}

// Ends the command with a message for the user, in UTF-8.
class CommandError : public std::runtime_error {
  public:
    CommandError(ExitCode code, const std::string& message) : std::runtime_error(message), m_code(code) {}
    ExitCode Code() const { return m_code; }

  private:
    ExitCode m_code;
};
