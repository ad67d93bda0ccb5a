// Tables in files of several kinds.
#pragma once

#include "TableTexts.h"

enum class TableKind { Csv, Xlsx, OtherWorkbook };

// By the ending of the name.
TableKind KindOfTable(const std::string& file);

// Throws CommandError (WrongUsage) for standard input: tables are read from files alone.
void RequireFile(const std::string& table);

// Reads a file of comma-separated values, or these columns of a workbook. Throws DocumentError or
// CommandError that names the file and the reason.
TableTexts ReadTable(const std::string& file, const WorkbookColumns& columns);
