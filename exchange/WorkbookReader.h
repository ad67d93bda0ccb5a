#pragma once

#include "WorkbookTable.h"

// Reads columns of the active sheet of a workbook: of an .xlsx through the library of XlsxReader.h, of any
// other through Excel, which is started and ended for it. But when a cell can't be read, Excel keeps running
// with the workbook open. After a fault the table has what was read before it. The library may leave words
// of its own in readerError, which is otherwise not touched.
WorkbookFault ReadWorkbook(const CString& path, const WorkbookColumns& columns, WorkbookTable& table,
                           CString& readerError);
