#pragma once

#include <afx.h>

// Writes what the screen shows of a window to a PNG file; false when that fails.
bool SaveScreenshot(HWND hWindow, const CString& strPath);

// The same into a folder "screenshots" of the current one, for somebody to look at; into another where the
// screen does not have 96 dpi.
bool KeepScreenshot(HWND hWindow, const CString& strName);
