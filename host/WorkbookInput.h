#pragma once

#include "WorkbookTable.h"

// Reads columns of the sheet that Excel shows on opening. Throws CommandError that names the workbook and the
// reason.
WorkbookTable ReadWorkbookTable(const CString& bookPath, const WorkbookColumns& columns,
                                WorkbookSheet& sheet);
