// The length units that rule dialogs offer.
#pragma once

#include <afxwin.h>

void FillLengthUnits(CComboBox& combo);

// The name of an offered unit (MfxLengthUnit_e); empty for others. The foot has no label but this.
CString GetLengthUnitName(int nLengthUnit);

// Selects a unit (MfxLengthUnit_e), or none when dialogs do not offer it.
void SelectLengthUnit(CComboBox& combo, int nLengthUnit);

// Stores the selected unit. When none is selected, selects the stored one again.
void StoreLengthUnit(CComboBox& combo, int& nLengthUnit);
