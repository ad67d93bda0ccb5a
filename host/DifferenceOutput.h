#pragma once

#include "Comparison.h"

#include <string>
#include <vector>

// The two sides as the output names them, and where they differ.
struct DiffResult {
    std::string left, right;
    std::vector<Difference> differences;
};

// Prints the differences as a table or as docs/diff.schema.json says; whether there are any.
bool PrintDifferences(const DiffResult& result, bool isJson);
