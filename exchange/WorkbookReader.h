#pragma once

#include "WorkbookTable.h"

// Reads columns of the active sheet of a workbook: of an .xlsx through the library of XlsxReader.h, of any
// other through Excel, which is started for it, asks nothing and runs no macros. When a cell can't be read,
// Excel is told neither to close the workbook nor to end. After a fault the table has what was read before
// it. Only that library writes to readerError, in words for the user.
WorkbookFault ReadWorkbook(const CString& path, const WorkbookColumns& columns, WorkbookTable& table,
                           CString& readerError);
