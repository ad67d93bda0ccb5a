#pragma once

#include <afx.h>

// Writes what the screen shows of a window to a PNG file; false when that fails.
bool SaveScreenshot(HWND hWindow, const CString& strPath);
