#pragma once

#include <stdexcept>

// Refuses a change of a document, with a message for the user, in UTF-8.
class EditError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};
