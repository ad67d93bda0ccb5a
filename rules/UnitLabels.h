// Short labels of units in rule summaries and records, from the module's localized resource library.
#pragma once

#include <afx.h>

// Label of a length unit (MfxLengthUnit_e); empty for the foot, which has none, and for unknown codes.
CString GetLengthUnitLabel(int nLengthUnit);

// Label of an angle unit (MfxAngleUnit_e); empty for unknown codes.
CString GetAngleUnitLabel(int nAngleUnit);

// Label of a mass unit (MfxMassUnit_e), the same in every language; empty for unknown codes.
CString GetMassUnitLabel(int nMassUnit);

// The mass unit with that label; the kilogram for a label that is none.
int GetMassUnitCode(const CString& strLabel);
