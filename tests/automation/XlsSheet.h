#pragma once

#include <windows.h>
#include <comdef.h>

#include <map>
#include <string>
#include <utility>

// Values as Excel gives them to its clients, by row and column from 0; empty cells are left out. Numbers are
// VT_R8, or as the cell's number format shows them VT_DATE or VT_CY.
using XlsCells = std::map<std::pair<unsigned, unsigned>, _variant_t>;

// Cells of the sheet that is active when the workbook opens: an .xls of Excel 97 or later (BIFF8 records in
// the stream "Workbook" of a compound file), not encrypted, with dates from 1900. Throws when it can't be
// read.
XlsCells ReadActiveSheet(const std::wstring& path);
