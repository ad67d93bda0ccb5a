// What an import of a workbook asks for and what comes of it.
#pragma once

#include "resource.h"

#include <afx.h>

#include <string>
#include <vector>

// Letters of the columns to read. The first is "A": it decides how many rows there are.
using WorkbookColumns = std::vector<std::wstring>;

// Texts of the cells, column by column, each from row 1 down. A column may be shorter than column "A".
using WorkbookTable = std::vector<std::vector<CString>>;

// The sheet that was read: the one that Excel shows on opening.
struct WorkbookSheet {
    CString strName;        // empty when it is not known
    bool bHasCells = true;  // a chart has none
};

// Why a workbook was not read.
enum class WorkbookFault : UINT {
    None = 0,
    PathWithoutFolder,
    ReaderMissing,  // the library of XlsxReader.h, or its export
    ReaderFailed,   // that library may have said why
    CellUnreadable,
    ExcelNotQuit,
    // A text in the resource libraries says these to the user; the value is its id.
    NotFound = IDS_WORKBOOK_NOT_FOUND,
    NotOpened = IDS_WORKBOOK_NOT_OPENED,
    ExcelNotStarted = IDS_EXCEL_NOT_STARTED,
    ExcelNotInstalled = IDS_EXCEL_NOT_INSTALLED,
};
inline bool HasText(WorkbookFault fault) {
    return fault >= WorkbookFault::NotFound;
}
