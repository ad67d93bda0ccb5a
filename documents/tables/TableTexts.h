#pragma once

#include "WorkbookTable.h"

#include <cstddef>
#include <string>
#include <vector>

// The texts of a table that was read from a file, and where each of them stands.
struct TableTexts {
    struct Line {
        int number = 0;  // in the file, from 1
        std::vector<std::string> cells = {};
    };
    std::string file;
    bool isWorkbook = false;
    Line headings;
    std::vector<Line> lines;
    WorkbookTable columns = {};  // of a workbook, as they were read
};

// Reads comma-separated values (RFC 4180, UTF-8). Throws DocumentError (Unreadable) that names the file, and
// the line where it is wrong.
TableTexts ReadCsvTable(const std::string& file);

// The columns of a sheet as such a table; each line has as many cells as there are columns.
TableTexts TableOfSheet(const std::string& file, const WorkbookTable& columns);

// The same the other way round.
WorkbookTable ColumnsOf(const TableTexts& table);

// Name of a cell of a sheet: "B3".
std::string CellName(int line, std::size_t column);

// Throws EditError that names the cell: "a.xlsx: B3: " or "a.csv:3: minimum [mm]: ".
[[noreturn]] void RefuseCell(const TableTexts& table, int line, std::size_t column,
                             const std::string& reason);

// The same for a whole line: "a.xlsx: row 3: " or "a.csv:3: ".
[[noreturn]] void RefuseLine(const TableTexts& table, int line, const std::string& reason);
