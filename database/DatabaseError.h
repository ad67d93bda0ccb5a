#pragma once

#include "MfxMaterials.h"

#include <stdexcept>
#include <string>

// Ends an operation on the database; the text is English, in UTF-8, and names the file.
class DatabaseError : public std::runtime_error {
  public:
    DatabaseError(MfxDatabaseProblem_e problem, const std::string& message)
        : std::runtime_error(message), m_problem(problem) {}
    MfxDatabaseProblem_e GetProblem() const { return m_problem; }

  private:
    MfxDatabaseProblem_e m_problem;
};
