#pragma once

#include "HostError.h"

#include <afx.h>

struct SheetOptions {
    CString strBook;
    CString strColumns;  // letters, with commas between them
    bool bJson = false;
};

// Prints what an import of those columns of a workbook reads, as a table or as JSON.
ExitCode PrintSheet(const SheetOptions& options);
