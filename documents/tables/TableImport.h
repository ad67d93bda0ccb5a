#pragma once

#include "DocumentEdit.h"
#include "TableTexts.h"

// The columns of a sheet that hold the table of a rule. One more is read where headings name the columns, to
// find one that does not belong there.
WorkbookColumns SheetColumnsOf(int ruleId);

// Replaces the table of a rule by one that was read from a file, as ExportTable makes it. Materials and
// groups that are not in it go. Throws EditError that names the place in the file.
void ImportTable(DocumentEdit& edit, const std::string& ruleKey, const TableTexts& table);
