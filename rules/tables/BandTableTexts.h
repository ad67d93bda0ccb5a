// What a group's bands of size and weight lack, in the user's language.
#pragma once

#include "SizeAndWeightCheck.h"

#include <afx.h>

// The units are those of the values. Empty for flaws that are not reported: a row is not finished yet.
CString BandFlawText(const SizeAndWeightResult& result, const CString& strLengthUnit,
                     const CString& strMassUnit);
