// Materials as files of comma-separated values.
#pragma once

#include "IMaterialDatabase.h"

#include <afxwin.h>

// The library's own access to the database; null when it is not loaded.
IMaterialDatabase* FindMaterialDatabase();

// Asks for a file to read or to write; empty when the user cancels.
CString AskForMaterialFile(bool bToRead, CWnd* pParent);

// What an import has done, in the user's language, or why it has done nothing.
CString ImportMaterials(IMaterialDatabase& database, const CString& strPath);

// Replaces the file when the new one is complete. Returns why it could not; empty when it is done.
CString ExportMaterials(IMaterialDatabase& database, const CString& strPath);
