#pragma once

#include <map>
#include <string>
#include <utility>

// What a cell gives to clients: a number under VT_R8, VT_DATE, VT_CY, VT_BOOL (0 or 1) or VT_ERROR (Excel's
// error number, 2007 for #DIV/0!), or a text under VT_BSTR. The number format decides between VT_R8, VT_DATE
// and VT_CY.
struct XlsCell {
    unsigned short nType;
    double number;
    std::wstring text;
};

// By row and column, from 0; empty cells are left out.
using XlsCells = std::map<std::pair<unsigned, unsigned>, XlsCell>;

// Cells of the sheet that is active when the workbook opens: an .xls of Excel 97 or later (BIFF8 records in
// the stream "Workbook" of a compound file), not encrypted. Throws std::exception when it can't be read.
XlsCells ReadActiveSheet(const std::wstring& path);
