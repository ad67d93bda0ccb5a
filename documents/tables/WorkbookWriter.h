#pragma once

#include "TableExport.h"

// The table as an .xlsx workbook of one sheet, with the table's name: the same bytes for the same table.
// Throws DocumentError (Unwritable) when it can't be made, for example in a temporary folder that is full.
std::string FormatWorkbook(const ExportedTable& table);
