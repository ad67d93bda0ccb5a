#pragma once

#include <windows.h>
#include <comdef.h>

#include <string>
#include <vector>

// The cells of a sheet, row by row.
using CellRows = std::vector<std::vector<_variant_t>>;

// Reads what tests write in place of a workbook: UTF-8, a line per row, cells divided by "|". A cell that is
// a number has the type VT_R8, an empty one VT_EMPTY, any other VT_BSTR, unless it names its type:
//     Length|12.5||date:2024-02-29|currency:9.9|boolean:true|error:2007|integer:42|text:12
// Throws when the file can't be opened.
CellRows ReadCellFile(const std::wstring& path);
