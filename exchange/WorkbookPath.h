// The check of a workbook's path before anything opens the workbook.
#pragma once

#include "WorkbookTable.h"

// NotFound or PathWithoutFolder when there is no workbook at the path, else None. None, too, for a missing
// workbook in a folder that can't be written: its absence shows when it is opened.
WorkbookFault FindPathFault(const CString& path);

// Copies the part of the path before its last backslash into a buffer that the caller frees by delete[].
// False, without a buffer, when there is no backslash.
bool GetFolderOfPath(LPCWSTR path, wchar_t*& folder);

enum FolderProbe { FolderWritable = 1, NoFolder = 2, FolderReadOnly = 3 };

// Writes a file "MFX.log" in the folder and deletes it; one that is there already is lost. Attributes and
// access lists would not tell the truth on network drives. NoFolder for null and for what is no folder.
FolderProbe ProbeFolderWritable(LPCWSTR folder);
