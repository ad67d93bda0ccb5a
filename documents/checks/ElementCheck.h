// Checks of single elements, which several subjects need.
#pragma once

#include "Reporter.h"

// The attribute's value is a whole number.
void CheckWholeNumber(const Reporter& reporter, const MfxXMLNode& element, const CString& attribute,
                      const CString& value);

// The attribute Status, where there is one, is 0 or 1: saving writes nothing else.
void CheckStatus(const Reporter& reporter, const MfxXMLNode& element);

// The element has no text: writing it anew leaves only what the rule has to say in it.
void CheckStrayText(const Reporter& reporter, const MfxXMLNode& element);

// The element's "Value" children are numbers. Returns how many there are.
int CheckReals(const Reporter& reporter, const MfxXMLNode& parent);

// The text of a table's cell is a number without sign and exponent.
void CheckCellNumber(const Reporter& reporter, const MfxXMLNode& row, const CString& cell,
                     const CString& text);
