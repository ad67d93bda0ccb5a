#pragma once

#include <stdexcept>
#include <string>

// How the program ends.
enum class ExitCode {
    Done = 0,
    Findings = 1,         // something in the input needs the user's attention
    Usage = 2,            // the command line is wrong
    UnreadableInput = 3,  // a file can't be read or is not a rule document
    Missing = 4,          // something is missing on the machine, or a file can't be written
};

// Ends the command with a message for the user, in UTF-8.
class HostError : public std::runtime_error {
  public:
    HostError(ExitCode code, const std::string& message) : std::runtime_error(message), m_code(code) {}
    ExitCode Code() const { return m_code; }

  private:
    ExitCode m_code;
};
