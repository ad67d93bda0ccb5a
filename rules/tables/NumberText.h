// Numbers as rules and dialogs show and read them: with a decimal point in every locale.
#pragma once

#include <afx.h>

// Numbers closer than this count as equal.
inline constexpr double kTolerance = 1e-6;

// Upper bound of a size band without an upper limit. It is never converted between units.
inline constexpr double NoUpperLimitValue = 1000000000.0;

// The characters of a number.
inline constexpr wchar_t kNumberCharacters[] = L".0123456789";

// Whether the number is NoUpperLimitValue within the tolerance.
bool IsNoUpperLimit(double value);

// Six decimals without trailing zeros, but at least one: 3 gives "3.0", 25.4 gives "25.4".
CString FormatDouble(double value);

// The number at the start of the text: "5 mm" gives 5, "1.2.3" gives 1.2. Signs are not read: "-5" gives 0,
// as do "" and "abc".
double ParseDouble(const CString& strText);

// Whether the text has nothing but points and digits; the empty text has.
BOOL IsNumericText(const CString& strText);
