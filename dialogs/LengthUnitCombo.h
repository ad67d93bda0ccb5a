// The length units that rule dialogs offer.
#pragma once

#include <afxwin.h>

void FillLengthUnits(CComboBox& combo);

// Selects a unit (MfxLengthUnit_e); nothing for a unit that dialogs do not offer.
void SelectLengthUnit(CComboBox& combo, int nLengthUnit);

// The unit selected; 0 for none.
int GetSelectedLengthUnit(const CComboBox& combo);
