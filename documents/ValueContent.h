#pragma once

#include "MfxTypes.h"

#include <string>
#include <variant>

// What stands where a number may: nothing when it is not given, the number, or a word where no unit applies:
// "no limit", a name, or a text of the document that is no number.
using ValueContent = std::variant<std::monostate, double, std::string>;

// What a rule means by a stored number; in a band it may be a mark for "not given" or "no limit".
ValueContent ContentOfNumber(double number, bool isOfBand);

// What a rule means by a cell of its draft angle table.
ValueContent ContentOfCell(const MfxTableRow& row, std::size_t cell);

// A number with as many digits as a person compares, and all of those before the point. No exponent, but for
// sizes that nothing in a casting has.
inline constexpr int kShownDigits = 7;
std::string FormatNumber(double number, int digits = kShownDigits);

// "-" for what is not given.
std::string FormatContent(const ValueContent& content, int digits = kShownDigits);
