#pragma once

#include <afx.h>

// Folder that the program runs from, without a backslash at its end.
CString GetProgramFolder();
