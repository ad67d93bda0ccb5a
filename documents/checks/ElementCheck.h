// Checks of single elements, which several subjects need.
#pragma once

#include "Reporter.h"

// Reports an attribute value that is not a whole number.
void CheckWholeNumber(const Reporter& reporter, const MfxXMLNode& element, const CString& attribute,
                      const CString& value);

// Reports a Status other than 0 or 1: saving writes nothing else.
void CheckStatus(const Reporter& reporter, const MfxXMLNode& element);

// Reports text in an element that has none: writing the element anew would lose it.
void CheckStrayText(const Reporter& reporter, const MfxXMLNode& element);

// Reports "Value" children that are no numbers. Returns how many children there are.
int CheckReals(const Reporter& reporter, const MfxXMLNode& parent);

// Reports a table cell that is no number, or one with a sign or an exponent.
void CheckCellNumber(const Reporter& reporter, const MfxXMLNode& row, const CString& cell,
                     const CString& text);
