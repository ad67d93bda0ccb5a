// Tables in files of several kinds.
#pragma once

#include "TableTexts.h"

enum class TableKind { Csv, Xlsx, OtherWorkbook };

// By the ending of the name; "-" is comma-separated values.
TableKind KindOfTable(const std::string& file);

// Reads a file of comma-separated values, or standard input. Throws as ReadTable does.
TableTexts ReadCsv(const std::string& file);

// Reads a file of comma-separated values, or these columns of a workbook. Throws DocumentError or
// CommandError that names the file and the reason.
TableTexts ReadTable(const std::string& file, const WorkbookColumns& columns);
