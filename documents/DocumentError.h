#pragma once

#include <stdexcept>
#include <string>

// Ends an operation on documents with a message for the user, in UTF-8: which file, what is wrong with it.
class DocumentError : public std::runtime_error {
  public:
    enum class Kind {
        Unreadable,        // the file can't be read, or is not a rule document
        NothingSelected,   // a folder or a pattern has no file
        Unwritable,        // the file can't be written
        ChangedMeanwhile,  // another program changed the file after it was read
        ComponentMissing,  // a library of the installation is missing or damaged
        RuleNotWritten,    // a rule could not write itself
    };

    DocumentError(Kind kind, const std::string& message) : std::runtime_error(message), m_kind(kind) {}
    Kind GetKind() const { return m_kind; }

  private:
    Kind m_kind;
};
