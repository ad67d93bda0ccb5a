#pragma once

#include "WorkbookTable.h"

// Reads columns of the active sheet of a workbook: .xlsx by the library of XlsxReader.h, all others through
// Excel, which is started for it. When a cell can't be read, Excel is told neither to close it nor to end.
// After a fault the table has what was read until then. strReaderError is only for that library's words.
WorkbookFault ReadWorkbook(const CString& strPath, const WorkbookColumns& columns, WorkbookTable& table,
                           CString& strReaderError);
