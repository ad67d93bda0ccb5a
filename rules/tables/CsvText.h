// Headings and fields of comma-separated values.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// "Density [g/cm3]" in its two parts; without brackets the unit is empty.
struct CsvHeading {
    std::string_view name, unit;
};
CsvHeading SplitCsvHeading(std::string_view text);

// A text as a field, in quotation marks where it needs them.
std::string CsvField(std::string_view text);

// Says that the first record of a file has semicolons between its fields; empty when it has not.
std::string FindSeparatorFlaw(const std::vector<std::string>& headings);
