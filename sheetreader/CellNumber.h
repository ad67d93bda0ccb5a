// Numbers as a workbook writes them. Blanks around them don't count.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

// A count or an index. Throws std::runtime_error when it is none.
std::uint32_t ParseIndex(std::string_view text);

// A number as automation's clients show it: with at most six decimals, "1.2500000001E1" as "12.5". Throws
// std::runtime_error when it is no number. The digits hold the text.
using Digits = char[std::numeric_limits<double>::max_exponent10 + 16];
std::string_view FormatCellNumber(std::string_view number, Digits& digits);
