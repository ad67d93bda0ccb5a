// Short labels of units in rule summaries, from the module's localized resource library.
#pragma once

#include <afx.h>

// Label of a length unit (MfxLengthUnit_e); empty for the foot, which has none, and for unknown codes.
CString GetLengthUnitLabel(int nLengthUnit);

// Label of an angle unit (MfxAngleUnit_e); empty for unknown codes.
CString GetAngleUnitLabel(int nAngleUnit);
