// Numbers as text, the same in every locale: the decimal separator is always a point.
#pragma once

#include "MfxKitExport.h"

#include <afx.h>

#include <cstdint>

// Shortest text that reads back as exactly the same number: 0.1 gives "0.1", 1e300 gives "1e+300".
MFXKIT_API CString FormatShortest(double value);

// Six decimals, as "%f": 2.5 gives "2.500000".
MFXKIT_API CString FormatSixDecimals(double value);

// At most six decimals, without zeros at the end: 2.5 gives "2.5", 3 gives "3".
MFXKIT_API CString FormatTrimmed(double value);

MFXKIT_API CString FormatInteger(std::int64_t value);

// Reads a number from the start of the text, after blanks; what follows it is ignored.
// Returns false and leaves the value alone when the text does not start with one.
// An integer outside its type's range becomes the nearest one that the type holds.
MFXKIT_API bool ParseInteger(const CString& strText, std::int32_t& value);
MFXKIT_API bool ParseInteger(const CString& strText, std::int64_t& value);
MFXKIT_API bool ParseReal(const CString& strText, double& value);

// Whether the text is one number and, but for blanks around it, nothing else.
MFXKIT_API bool IsInteger(const CString& strText);
MFXKIT_API bool IsReal(const CString& strText);
