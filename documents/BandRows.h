#pragma once

#include "RuleValues.h"

#include <map>
#include <string>
#include <vector>

// The values of a row of bands, in the order of the table's columns.
using BandRow = std::vector<RuleValue>;

// The rows of the tables among a rule's values, by the tables' keys ("29183", "Steel/band").
std::map<std::string, std::vector<BandRow>> TablesOf(const std::vector<RuleValue>& values);

// The sizes and weights between which a band holds.
std::vector<RuleValue> BoundsOf(const BandRow& row);

// Rows of two tables that are the same band; their numbers from 1, and 0 where a band has no counterpart.
struct RowPair {
    int left = 0;
    int right = 0;
};

// Every row of both tables, in order. As many rows as possible keep their bounds. What is left between two of
// them is paired so that most values stay. Very long tables are paired row by row.
std::vector<RowPair> AlignRows(const std::vector<BandRow>& left, const std::vector<BandRow>& right);
