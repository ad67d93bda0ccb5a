// What the grids of the size-and-weight dialog show.
#pragma once

#include "MFXWTBasedOnSizeAndWeightListCtrl.h"
#include "SizeAndWeightGroups.h"

// Makes the rows, and enough empty ones for typing.
void ShowGroups(CMFXListCtrl& list, const std::vector<CString>& names);
void ShowBands(CMFXListCtrl& grid, const std::vector<BandTexts>& rows);

// Writes into the rows that there are. Empty texts are left out: their cells are empty already.
void WriteBands(CMFXListCtrl& grid, const std::vector<BandTexts>& rows);

// The names in the list, and all rows of the grid with what is being typed.
std::vector<CString> ReadGroups(const CMFXListCtrl& list);
std::vector<BandTexts> ReadBandRows(const CMFXListCtrl& grid);

// Selects a group in the list, if it is there, and brings it into view.
void SelectGroupRow(CMFXListCtrl& list, const CString& strGroup);
