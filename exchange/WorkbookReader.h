#pragma once

#include "WorkbookTable.h"

// Reads columns of the active sheet of a workbook: of an .xlsx through the library of XlsxReader.h, of any
// other through Excel, which is started for it, asks nothing and runs no macros. When a cell can't be read,
// Excel is told neither to close the workbook nor to end. After a fault the table has what was read before
// it. Only that library writes to readerError, in words for the user. The sheet is described where that is
// asked for.
WorkbookFault ReadWorkbook(const CString& path, const WorkbookColumns& columns, WorkbookTable& table,
                           CString& readerError, WorkbookSheet* sheet = nullptr);

// Whether the file can be read and does not begin as workbooks do: as a zip archive, a compound file, or a
// sheet of older versions.
bool IsOtherThanWorkbook(const CString& path);
