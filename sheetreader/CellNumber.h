// Numbers as a workbook writes them. Blanks around them don't count. All functions throw std::runtime_error
// when the text is no such number.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

// A count or an index.
std::uint32_t ParseIndex(std::string_view text);

// Room for the longest number.
using Digits = char[std::numeric_limits<double>::max_exponent10 + 16];

// The number as automation's clients show it, with at most six decimals: "1.2500000001E1" gives "12.5". The
// result is a view of the digits.
std::string_view FormatCellNumber(std::string_view number, Digits& digits);
