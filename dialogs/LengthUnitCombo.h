// The length units that rule dialogs offer.
#pragma once

#include <afxwin.h>

void FillLengthUnits(CComboBox& combo);

// Selects a unit (MfxLengthUnit_e), or none when dialogs do not offer it.
void SelectLengthUnit(CComboBox& combo, int nLengthUnit);

// The selected unit (MfxLengthUnit_e); 0 when none is selected.
int GetSelectedLengthUnit(const CComboBox& combo);
