// Sizes and places of the in-cell editors.
#pragma once

#include <afxwin.h>

// Pixels at 96 dpi as pixels of the window's monitor.
int ScaleForDpi(const CWnd& window, int nPixels);

// Of the window's own font, in pixels.
int GetFontHeight(const CWnd& window);

// Puts the text half-way down the box, where the cell has its text; a multi-line box begins at the top.
void PlaceLine(CEdit& editor, int nFontHeight);

// A combo box takes its height from its font. It stands half-way down a rectangle of the given height.
void PlaceBox(CComboBox& combo, CRect rect, int nHeight);
