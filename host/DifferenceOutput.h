#pragma once

#include "PatchApplication.h"

#include <string>
#include <vector>

// Prints differences as a table of one line each, with the names of the two sides.
void PrintDifferences(const std::vector<Difference>& differences, const std::string& left,
                      const std::string& right);

// Prints conflicts to standard error, a line each, with the names of what is expected, found and wanted.
struct ConflictNames {
    std::string expected, found, wanted;
};
void PrintConflicts(const std::vector<Conflict>& conflicts, const ConflictNames& names);
