// The length units that rule dialogs offer.
#pragma once

#include <afxwin.h>

void FillLengthUnits(CComboBox& combo);

// How texts of dialogs call a unit (MfxLengthUnit_e): by its label, or the foot, which has none, as the combo
// box does. Empty for an unknown one.
CString GetLengthUnitCaption(int nLengthUnit);

// Selects a unit (MfxLengthUnit_e), or none when dialogs do not offer it.
void SelectLengthUnit(CComboBox& combo, int nLengthUnit);

// Stores the selected unit. When none is selected, selects the stored one again.
void StoreLengthUnit(CComboBox& combo, int& nLengthUnit);
