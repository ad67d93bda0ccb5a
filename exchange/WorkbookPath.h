// Whether the file of a workbook can be expected to be read.
#pragma once

#include "WorkbookTable.h"

// NotFound or PathWithoutFolder when the path can't be that of a workbook. In a folder that can't be written
// the workbook's own existence is not tested: what can't be probed is left to the program that opens it.
WorkbookFault FindPathFault(const CString& strPath);

// Copies the part of the path before its last backslash into a buffer that the caller frees by delete[].
// False, without a buffer, when there is no backslash.
bool GetFolderOfPath(LPCWSTR pszPath, wchar_t*& pszFolder);

enum FolderProbe { FolderWritable = 1, NoFolder = 2, FolderReadOnly = 3 };

// Tries to write a file "MFX.log" in the folder, and deletes it; one that exists is lost. Attributes and
// access lists would not tell the truth on network drives. NoFolder for null and for what is no folder.
FolderProbe ProbeFolderWritable(LPCWSTR pszFolder);
