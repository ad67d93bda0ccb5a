// Labels of the mass units, the same in every language: records keep the label of the unit.
#pragma once

#include "MFXUnitConvertor.h"

#include <afx.h>

#include <iterator>

// By unit code (MfxMassUnit_e), from MassMilligram on.
inline constexpr const wchar_t* kMassUnitLabels[] = {L"mg", L"g", L"kg", L"t", L"lb"};
static_assert(std::size(kMassUnitLabels) == MassPound - MassMilligram + 1);

// Label of a mass unit; empty for unknown codes.
inline CString GetMassUnitLabel(int nMassUnit) {
    return nMassUnit >= MassMilligram && nMassUnit <= MassPound ? kMassUnitLabels[nMassUnit - MassMilligram]
                                                                : L"";
}

// The mass unit with that label; 0 for a label that is none.
inline int FindMassUnit(const CString& strLabel) {
    for (int nMassUnit = MassMilligram; nMassUnit <= MassPound; ++nMassUnit)
        if (strLabel == kMassUnitLabels[nMassUnit - MassMilligram]) return nMassUnit;
    return 0;
}
