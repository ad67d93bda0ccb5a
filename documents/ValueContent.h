#pragma once

#include "MfxTypes.h"

#include <string>
#include <variant>

// Content of a number's place: nothing when it is not given, the number, or a text: "no limit", a name, a
// text that is no number.
using ValueContent = std::variant<std::monostate, double, std::string>;

// What a rule means by a stored number; in a band it may be a mark for "not given" or "no limit".
ValueContent ContentOfNumber(double number, bool isOfBand);

// What a rule means by a cell of its draft angle table; a cell that the row lacks is not given.
ValueContent ContentOfCell(const MfxTableRow& row, std::size_t cell);

// The number or mark that rules store for a content of bands: the reverse of ContentOfNumber.
double StoredNumber(const ValueContent& content);

// A number with that many significant digits, and always with all digits before the point. An exponent only
// below 1e-9 and from 1e15 on.
inline constexpr int kShownDigits = 7;
inline constexpr int kComparedDigits = 10;  // where two numbers that differ by little are both named
std::string FormatNumber(double number, int digits = kShownDigits);

// The fewest digits that read back as the same number, with exponents as above.
std::string FormatExact(double number);

// "-" for what is not given.
std::string FormatContent(const ValueContent& content, int digits = kShownDigits);
